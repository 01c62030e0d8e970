// What it costs to look at a clip: a minute of 4K HEVC with a key frame each second, as cameras
// write it.

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <fstream>
#include <stdexcept>
#include <string>

#include "media/VideoDecoder.h"
#include "support/Clips.h"
#include "support/TempFolder.h"

namespace ornivo::benchmarks {
namespace {

constexpr int classifierSide = 640;
constexpr int seconds = 60;

/// A second with detail and grain, over and over. It goes with the object.
class Minute {
public:
    explicit Minute(const std::string& pixelFormat) {
        const auto second = testing::writeClip(
            folder_ / "second.mov",
            {"-f", "lavfi", "-i", "testsrc2=s=3840x2160:r=30:d=1,noise=alls=4:allf=t"},
            {"-c:v", "libx265", "-preset", "ultrafast", "-b:v", "60M", "-g", "30", "-pix_fmt",
             pixelFormat, "-tag:v", "hvc1"});
        testing::writeClip(file(),
                           {"-stream_loop", std::to_string(seconds - 1), "-i", second.string()},
                           {"-c", "copy"});
    }

    std::filesystem::path file() const { return folder_ / "minute.mov"; }

private:
    testing::TempFolder folder_;
};

double processorSeconds(int who) {
    rusage usage{};
    getrusage(who, &usage);
    const auto inSeconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return inSeconds(usage.ru_utime) + inSeconds(usage.ru_stime);
}

/// The processor time of decoding one key frame on one thread and nothing else, by ffmpeg itself.
double keyFrameSeconds(const std::filesystem::path& clip) {
    const double before = processorSeconds(RUSAGE_CHILDREN);
    testing::writeClip("/dev/null", {"-threads", "1", "-skip_frame", "nokey", "-i", clip.string()},
                       {"-fps_mode", "passthrough", "-f", "null"});
    return (processorSeconds(RUSAGE_CHILDREN) - before) / seconds;
}

/// From now on `peakMegabytes` tells the most that the process holds at a time.
void forgetPeak() {
    std::ofstream("/proc/self/clear_refs") << "5";
}

double peakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        double kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes) return kilobytes / 1e3;
    }
    throw std::runtime_error("the system does not tell how much memory a process holds");
}

void sampleClip(benchmark::State& state, const char* pixelFormat) {
    const Minute minute(pixelFormat);
    const double keyFrame = keyFrameSeconds(minute.file());
    forgetPeak();
    const double before = processorSeconds(RUSAGE_SELF);
    for (auto _ : state) {
        const auto clip = VideoDecoder::sampleFrames(minute.file(), classifierSide);
        if (!clip || clip->frames.size() != VideoDecoder::maxFrames) {
            state.SkipWithError("The clip did not give its frames.");
            return;
        }
    }
    const double spent = processorSeconds(RUSAGE_SELF) - before;
    state.counters["key_frames"] = spent / static_cast<double>(state.iterations()) / keyFrame;
    state.counters["peak_MB"] = peakMegabytes();
}
BENCHMARK_CAPTURE(sampleClip, eight_bits, "yuv420p")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);
BENCHMARK_CAPTURE(sampleClip, ten_bits, "yuv420p10le")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

}  // namespace
}  // namespace ornivo::benchmarks
