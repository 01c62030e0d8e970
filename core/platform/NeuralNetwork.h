#pragma once

#include <filesystem>
#include <memory>

#include "platform/ImageClassifier.h"

namespace ornivo {

/// An image classifier in the ONNX format, run by ONNX Runtime on one thread.
///
/// A model package is a folder with `model.onnx`; a compiled model is a folder with the same
/// network in the form this machine loads fastest. The network has the input `image`, float32
/// 1×3×n×n, RGB planes with values 0 to 255, and the output `classLabel_probs`, float32 1×classes.
/// Its metadata entry `class_labels` names the classes, one a line. It may have the output
/// `bird_box`, float32 1×4: where the subject is, as the fields of `SubjectBox`, in their order.
class NeuralNetwork : public ImageClassifier {
public:
    /// Turns a model package, or a single model file, into a compiled model at `compiled`, a
    /// folder that must not be there yet; it has reached the disk when the call returns. A failure
    /// raises `Error` and leaves nothing at `compiled`.
    static void compile(const std::filesystem::path& model, const std::filesystem::path& compiled);

    /// Loads a compiled model. Raises `Error`.
    explicit NeuralNetwork(const std::filesystem::path& compiled);
    ~NeuralNetwork() override;

    std::vector<std::string> classLabels() const override;
    ImageClassification classify(const Bitmap& image, std::uint32_t orientation) override;

private:
    struct Session;
    std::unique_ptr<Session> session_;
};

}  // namespace ornivo
