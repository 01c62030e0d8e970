#include "platform/NeuralNetwork.h"

#include <onnxruntime_c_api.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/BitmapTransforms.h"
#include "platform/Error.h"
#include "platform/Flush.h"
#include "platform/NetworkInput.h"

namespace ornivo {
namespace {

namespace fs = std::filesystem;

constexpr const char* errorDomain = "ONNXRuntime";
/// The functions that every library from 1.17 on has.
constexpr std::uint32_t apiVersion = 17;

constexpr const char* networkFileName = "model.onnx";
constexpr const char* inputName = "image";
constexpr const char* sharesName = "classLabel_probs";
constexpr const char* boxName = "bird_box";
constexpr const char* labelsKey = "class_labels";

const OrtApi& api() {
    static const OrtApi* const functions = OrtGetApiBase()->GetApi(apiVersion);
    if (!functions) {
        throw Error(errorDomain, ORT_NOT_IMPLEMENTED, "ONNX Runtime is older than version 1.17.");
    }
    return *functions;
}

template <auto release>
struct Release {
    template <typename Handle>
    void operator()(Handle* handle) const {
        (api().*release)(handle);
    }
};

using StatusHandle = std::unique_ptr<OrtStatus, Release<&OrtApi::ReleaseStatus>>;
using EnvironmentHandle = std::unique_ptr<OrtEnv, Release<&OrtApi::ReleaseEnv>>;
using OptionsHandle = std::unique_ptr<OrtSessionOptions, Release<&OrtApi::ReleaseSessionOptions>>;
using SessionHandle = std::unique_ptr<OrtSession, Release<&OrtApi::ReleaseSession>>;
using MetadataHandle = std::unique_ptr<OrtModelMetadata, Release<&OrtApi::ReleaseModelMetadata>>;
using TypeHandle = std::unique_ptr<OrtTypeInfo, Release<&OrtApi::ReleaseTypeInfo>>;
using TensorTypeHandle =
    std::unique_ptr<OrtTensorTypeAndShapeInfo, Release<&OrtApi::ReleaseTensorTypeAndShapeInfo>>;
using MemoryHandle = std::unique_ptr<OrtMemoryInfo, Release<&OrtApi::ReleaseMemoryInfo>>;
using ValueHandle = std::unique_ptr<OrtValue, Release<&OrtApi::ReleaseValue>>;

void check(OrtStatus* status) {
    if (!status) return;
    const StatusHandle owned(status);
    throw Error(errorDomain, api().GetErrorCode(status), api().GetErrorMessage(status));
}

/// What a function of the library makes, as an owner: `make` takes the place for the result.
template <typename Handle, typename Make>
Handle made(Make make) {
    typename Handle::pointer raw = nullptr;
    check(make(&raw));
    return Handle(raw);
}

Error unsuitable(const std::string& why) {
    return {errorDomain, ORT_INVALID_GRAPH, "The classifier can't be used: " + why};
}

EnvironmentHandle makeEnvironment() {
    return made<EnvironmentHandle>(
        [](OrtEnv** out) { return api().CreateEnv(ORT_LOGGING_LEVEL_ERROR, "ornivo", out); });
}

/// One thread that sleeps when there is nothing to do: the other cores decode photographs.
OptionsHandle makeOptions(GraphOptimizationLevel level) {
    OptionsHandle options = made<OptionsHandle>(api().CreateSessionOptions);
    check(api().SetIntraOpNumThreads(options.get(), 1));
    check(api().SetInterOpNumThreads(options.get(), 1));
    check(api().SetSessionGraphOptimizationLevel(options.get(), level));
    constexpr std::array<std::pair<const char*, const char*>, 3> entries{{
        {"session.intra_op.allow_spinning", "0"},
        {"session.inter_op.allow_spinning", "0"},
        // Keeps the weights out of the arena, which grows in powers of two.
        {"session.use_device_allocator_for_initializers", "1"},
    }};
    for (const auto& [key, value] : entries) {
        check(api().AddSessionConfigEntry(options.get(), key, value));
    }
    return options;
}

SessionHandle openSession(const OrtEnv& environment, const fs::path& network,
                          const OrtSessionOptions& options) {
    return made<SessionHandle>([&](OrtSession** out) {
        return api().CreateSession(&environment, network.c_str(), &options, out);
    });
}

/// A text that the library allocated, as one of ours.
std::string taken(OrtAllocator* allocator, char* text) {
    const auto release = [&](char* memory) { allocator->Free(allocator, memory); };
    const std::unique_ptr<char, decltype(release)> owned(text, release);
    return text ? std::string(text) : std::string();
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        result.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

std::vector<std::string> readLabels(const OrtSession& session) {
    OrtAllocator* allocator = nullptr;
    check(api().GetAllocatorWithDefaultOptions(&allocator));
    const auto metadata = made<MetadataHandle>(
        [&](OrtModelMetadata** out) { return api().SessionGetModelMetadata(&session, out); });
    char* text = nullptr;
    check(api().ModelMetadataLookupCustomMetadataMap(metadata.get(), allocator, labelsKey, &text));
    return lines(taken(allocator, text));
}

bool hasOutput(const OrtSession& session, std::string_view wanted) {
    OrtAllocator* allocator = nullptr;
    check(api().GetAllocatorWithDefaultOptions(&allocator));
    std::size_t count = 0;
    check(api().SessionGetOutputCount(&session, &count));
    for (std::size_t i = 0; i < count; ++i) {
        char* name = nullptr;
        check(api().SessionGetOutputName(&session, i, allocator, &name));
        if (taken(allocator, name) == wanted) return true;
    }
    return false;
}

/// Width and height in pixels of the pictures that the network takes.
int readSide(const OrtSession& session) {
    const auto type = made<TypeHandle>(
        [&](OrtTypeInfo** out) { return api().SessionGetInputTypeInfo(&session, 0, out); });
    const OrtTensorTypeAndShapeInfo* tensor = nullptr;  // belongs to `type`
    check(api().CastTypeInfoToTensorInfo(type.get(), &tensor));
    if (!tensor) throw unsuitable("its input is no tensor.");

    std::size_t dimensions = 0;
    check(api().GetDimensionsCount(tensor, &dimensions));
    std::vector<std::int64_t> shape(dimensions);
    check(api().GetDimensions(tensor, shape.data(), dimensions));
    constexpr std::int64_t largestSide = 4096;
    const bool isSquarePicture = dimensions == 4 && shape[0] == 1 && shape[1] == Bitmap::channels &&
                                 shape[2] == shape[3] && shape[2] >= 1 && shape[2] <= largestSide;
    if (!isSquarePicture) throw unsuitable("its input is no square picture of a fixed size.");
    return static_cast<int>(shape[2]);
}

/// A tensor that shows `planes` to the network; `planes` must outlive it.
ValueHandle makeInput(std::vector<float>& planes, int side) {
    const auto memory = made<MemoryHandle>([](OrtMemoryInfo** out) {
        return api().CreateCpuMemoryInfo(OrtDeviceAllocator, OrtMemTypeDefault, out);
    });
    const std::array<std::int64_t, 4> shape{1, Bitmap::channels, side, side};
    return made<ValueHandle>([&](OrtValue** out) {
        return api().CreateTensorWithDataAsOrtValue(
            memory.get(), planes.data(), planes.size() * sizeof(float), shape.data(), shape.size(),
            ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT, out);
    });
}

/// The numbers of an output, which live as long as it does.
std::span<const float> numbers(OrtValue& output) {
    const auto tensor = made<TensorTypeHandle>(
        [&](OrtTensorTypeAndShapeInfo** out) { return api().GetTensorTypeAndShape(&output, out); });
    ONNXTensorElementDataType type = ONNX_TENSOR_ELEMENT_DATA_TYPE_UNDEFINED;
    check(api().GetTensorElementType(tensor.get(), &type));
    std::size_t count = 0;
    check(api().GetTensorShapeElementCount(tensor.get(), &count));
    if (type != ONNX_TENSOR_ELEMENT_DATA_TYPE_FLOAT) throw unsuitable("it answers no numbers.");
    void* data = nullptr;
    check(api().GetTensorMutableData(&output, &data));
    return {static_cast<const float*>(data), count};
}

std::vector<Observation> ranked(std::span<const float> shares,
                                const std::vector<std::string>& labels) {
    if (shares.size() != labels.size()) {
        throw unsuitable("it answers " + std::to_string(shares.size()) + " shares for " +
                         std::to_string(labels.size()) + " labels.");
    }
    std::vector<Observation> observations;
    observations.reserve(shares.size());
    for (std::size_t i = 0; i < shares.size(); ++i) observations.push_back({labels[i], shares[i]});
    std::ranges::stable_sort(observations, std::greater(), &Observation::confidence);
    return observations;
}

SubjectBox boxFrom(std::span<const float> values) {
    constexpr std::size_t fields = 4;
    if (values.size() != fields) {
        throw unsuitable("it tells where the bird is by " + std::to_string(values.size()) +
                         " numbers.");
    }
    return {values[0], values[1], values[2], values[3]};
}

void requireFlushed(int failure, const fs::path& path) {
    if (failure != 0) throw Error::posix(failure, path.string());
}

/// Optimising as far as the standard operators go keeps the result valid on every processor and
/// with every library version; what is left for loading takes a few milliseconds.
void saveOptimised(const fs::path& network, const fs::path& target) {
    const EnvironmentHandle environment = makeEnvironment();
    const OptionsHandle options = makeOptions(ORT_ENABLE_BASIC);
    check(api().SetOptimizedModelFilePath(options.get(), target.c_str()));
    openSession(*environment, network, *options);  // saves on its way
}

}  // namespace

struct NeuralNetwork::Session {
    explicit Session(const fs::path& network)
        : environment(makeEnvironment()),
          session(openSession(*environment, network, *makeOptions(ORT_ENABLE_ALL))),
          labels(readLabels(*session)),
          side(readSide(*session)),
          tellsSubject(hasOutput(*session, boxName)),
          planes(static_cast<std::size_t>(side) * static_cast<std::size_t>(side) *
                 Bitmap::channels),
          input(makeInput(planes, side)) {}

    /// Lets the network look at `planes`.
    ImageClassification run() const {
        constexpr std::array names{sharesName, boxName};
        const std::size_t wanted = tellsSubject ? names.size() : names.size() - 1;
        const OrtValue* const inputs[] = {input.get()};
        std::array<OrtValue*, names.size()> outputs{};
        check(api().Run(session.get(), nullptr, &inputName, inputs, 1, names.data(), wanted,
                        outputs.data()));
        const ValueHandle shares(outputs[0]);
        const ValueHandle box(outputs[1]);
        ImageClassification result{ranked(numbers(*shares), labels), std::nullopt};
        if (box) result.subject = boxFrom(numbers(*box));
        return result;
    }

    EnvironmentHandle environment;
    SessionHandle session;
    std::vector<std::string> labels;
    int side;
    bool tellsSubject;
    std::vector<float> planes;
    ValueHandle input;
};

void NeuralNetwork::compile(const fs::path& model, const fs::path& compiled) {
    std::error_code unknown;
    const bool isPackage = fs::is_directory(model, unknown);
    if (mkdir(compiled.c_str(), S_IRWXU) != 0) throw Error::posix(errno, compiled.string());
    try {
        saveOptimised(isPackage ? model / networkFileName : model, compiled / networkFileName);
        // A folder whose name has reached the disk and whose network has not would never load.
        requireFlushed(Flush::file(compiled / networkFileName), compiled);
        requireFlushed(Flush::folder(compiled), compiled);
    } catch (...) {
        std::error_code ignored;
        fs::remove_all(compiled, ignored);
        throw;
    }
}

NeuralNetwork::NeuralNetwork(const fs::path& compiled)
    : session_(std::make_unique<Session>(compiled / networkFileName)) {}

NeuralNetwork::~NeuralNetwork() = default;

std::vector<std::string> NeuralNetwork::classLabels() const {
    return session_->labels;
}

ImageClassification NeuralNetwork::classify(const Bitmap& image, std::uint32_t orientation) {
    fillPlanes(upright(image, orientation), session_->side, session_->planes);
    return session_->run();
}

}  // namespace ornivo
