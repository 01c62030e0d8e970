#include "engine/Run.h"

#include "platform/Paths.h"

namespace ornivo {

namespace fs = std::filesystem;

std::string SortEngine::Run::fileName(std::size_t index) const {
    return lastPathComponent(input.paths[index]);
}

std::int64_t SortEngine::Run::sequence(std::size_t index) const {
    return sequenceNumber(fileName(index), static_cast<std::int64_t>(index));
}

bool SortEngine::Run::isFollower(std::size_t index) const {
    return grouping.followers.contains(index);
}

std::vector<std::size_t> SortEngine::Run::leaders() const {
    std::vector<std::size_t> leaders;
    for (std::size_t i = input.startIndex; i < input.paths.size(); ++i) {
        if (!isFollower(i)) leaders.push_back(i);
    }
    return leaders;
}

std::vector<fs::path> SortEngine::Run::partners(std::size_t index) const {
    std::vector<fs::path> partners;
    const auto found = grouping.partners.find(index);
    if (found == grouping.partners.end()) return partners;
    for (const std::size_t partner : found->second) partners.push_back(input.paths[partner]);
    return partners;
}

std::vector<fs::path> SortEngine::Run::shot(std::size_t index) const {
    std::vector<fs::path> files = partners(index);
    files.insert(files.begin(), input.paths[index]);
    return files;
}

void SortEngine::Run::rememberFrame(std::size_t index, const ClassifiedShot& classified) {
    if (input.options.burstInheritance == BurstInheritance::off) return;
    frames.push_back({sequence(index), classified.metadata.captureSecond, classified.species.topK});
}

void SortEngine::Run::fail(const std::exception& error) {
    sink.emit(Prediction{std::nullopt, error.what()});
    ++(isFind() ? find.errors : sort.errors);
}

}  // namespace ornivo
