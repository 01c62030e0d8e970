// A door from Python to ONNX Runtime: plain functions for ctypes, as runtime.py calls them. What
// can fail answers null and leaves its reason in the caller's buffer; nothing is ever thrown
// across.
#include <onnxruntime_c_api.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

const OrtApi& api() {
    static const OrtApi& functions = *OrtGetApiBase()->GetApi(ORT_API_VERSION);
    return functions;
}

void require(OrtStatus* status) {
    if (status == nullptr) return;
    const std::string reason = api().GetErrorMessage(status);
    api().ReleaseStatus(status);
    throw std::runtime_error(reason);
}

template <typename T>
using Handle = std::unique_ptr<T, void (*)(T*)>;

OrtEnv* environment() {
    // Lives as long as the process: ONNX Runtime wants it to outlive every session.
    static OrtEnv* const shared = [] {
        OrtEnv* made = nullptr;
        require(api().CreateEnv(ORT_LOGGING_LEVEL_ERROR, "ornivo", &made));
        return made;
    }();
    return shared;
}

std::vector<std::string> names(
    const OrtSession* session, OrtStatus* (*count)(const OrtSession*, size_t*) noexcept,
    OrtStatus* (*name)(const OrtSession*, size_t, OrtAllocator*, char**) noexcept) {
    OrtAllocator* allocator = nullptr;
    require(api().GetAllocatorWithDefaultOptions(&allocator));
    size_t size = 0;
    require(count(session, &size));
    std::vector<std::string> all;
    for (size_t i = 0; i < size; i++) {
        char* text = nullptr;
        require(name(session, i, allocator, &text));
        all.emplace_back(text);
        require(api().AllocatorFree(allocator, text));
    }
    return all;
}

struct Session {
    Handle<OrtSession> handle{nullptr, api().ReleaseSession};
    std::string input;
    std::string outputs;  // lines
};

struct Answer {
    Handle<OrtValue> value{nullptr, api().ReleaseValue};
    std::vector<int64_t> shape;
    ONNXTensorElementDataType type = ONNX_TENSOR_ELEMENT_DATA_TYPE_UNDEFINED;
};

Answer answerOf(OrtValue* value) {
    Answer answer;
    answer.value.reset(value);
    OrtTensorTypeAndShapeInfo* info = nullptr;
    require(api().GetTensorTypeAndShape(value, &info));
    const Handle<OrtTensorTypeAndShapeInfo> kept(info, api().ReleaseTensorTypeAndShapeInfo);
    size_t rank = 0;
    require(api().GetDimensionsCount(info, &rank));
    answer.shape.resize(rank);
    require(api().GetDimensions(info, answer.shape.data(), rank));
    require(api().GetTensorElementType(info, &answer.type));
    return answer;
}

template <typename Work>
auto guarded(char* reason, size_t room, Work work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::exception& error) {
        const std::string text = error.what();
        const size_t length = std::min(text.size(), room - 1);
        std::memcpy(reason, text.data(), length);
        reason[length] = '\0';
        return nullptr;
    }
}

}  // namespace

extern "C" {

// Opens a model. `optimisation` is ONNX Runtime's GraphOptimizationLevel; `saveTo` is where the
// optimised graph goes, or empty. Answers a session for the functions below, or null.
void* ornivo_open(const char* model, int threads, int optimisation, const char* saveTo,
                  char* reason, size_t room) {
    return guarded(reason, room, [&]() -> void* {
        OrtSessionOptions* made = nullptr;
        require(api().CreateSessionOptions(&made));
        const Handle<OrtSessionOptions> options(made, api().ReleaseSessionOptions);
        require(api().SetIntraOpNumThreads(made, threads));
        require(api().SetInterOpNumThreads(made, 1));
        require(api().SetSessionGraphOptimizationLevel(
            made, static_cast<GraphOptimizationLevel>(optimisation)));
        if (*saveTo != '\0') require(api().SetOptimizedModelFilePath(made, saveTo));

        auto session = std::make_unique<Session>();
        OrtSession* opened = nullptr;
        require(api().CreateSession(environment(), model, made, &opened));
        session->handle.reset(opened);
        session->input =
            names(opened, api().SessionGetInputCount, api().SessionGetInputName).at(0);
        for (const auto& name :
             names(opened, api().SessionGetOutputCount, api().SessionGetOutputName)) {
            session->outputs += name + '\n';
        }
        return session.release();
    });
}

void ornivo_close(void* session) { delete static_cast<Session*>(session); }

// The names of the outputs, each followed by a line feed; valid until the session is closed.
const char* ornivo_outputs(void* session) {
    return static_cast<Session*>(session)->outputs.c_str();
}

// Runs the model on one tensor of floats and answers the `count` outputs wanted, or null. They are
// read with the functions below and given back with ornivo_release.
void* ornivo_run(void* opened, float* data, const int64_t* shape, size_t rank,
                 const char* const* wanted, size_t count, char* reason, size_t room) {
    return guarded(reason, room, [&]() -> void* {
        auto& session = *static_cast<Session*>(opened);
        OrtMemoryInfo* memory = nullptr;
        require(api().CreateCpuMemoryInfo(OrtDeviceAllocator, OrtMemTypeDefault, &memory));
        const Handle<OrtMemoryInfo> kept(memory, api().ReleaseMemoryInfo);
        size_t bytes = sizeof(float);
        for (size_t i = 0; i < rank; i++) bytes *= static_cast<size_t>(shape[i]);
        OrtValue* input = nullptr;
        require(api().CreateTensorWithDataAsOrtValue(memory, data, bytes, shape, rank,
                                                     ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT, &input));
        const Handle<OrtValue> lent(input, api().ReleaseValue);

        const char* const inputName = session.input.c_str();
        std::vector<OrtValue*> values(count, nullptr);
        require(api().Run(session.handle.get(), nullptr, &inputName, &input, 1, wanted, count,
                          values.data()));
        auto answers = std::make_unique<std::vector<Answer>>();
        for (OrtValue* value : values) answers->push_back(answerOf(value));
        return answers.release();
    });
}

void ornivo_release(void* answers) { delete static_cast<std::vector<Answer>*>(answers); }

// The rank of output `index`; its extents go to `shape` when that is not null.
size_t ornivo_shape(void* answers, size_t index, int64_t* shape) {
    const auto& extents = static_cast<std::vector<Answer>*>(answers)->at(index).shape;
    if (shape != nullptr) std::copy(extents.begin(), extents.end(), shape);
    return extents.size();
}

// ONNX's number for the element type of output `index`.
int ornivo_type(void* answers, size_t index) {
    return static_cast<int>(static_cast<std::vector<Answer>*>(answers)->at(index).type);
}

// The elements of output `index`, valid until ornivo_release; null for texts.
void* ornivo_data(void* answers, size_t index) {
    const auto& answer = static_cast<std::vector<Answer>*>(answers)->at(index);
    void* data = nullptr;
    if (answer.type == ONNX_TENSOR_ELEMENT_DATA_TYPE_STRING) return nullptr;
    OrtStatus* const status = api().GetTensorMutableData(answer.value.get(), &data);
    if (status == nullptr) return data;
    api().ReleaseStatus(status);
    return nullptr;
}
}
