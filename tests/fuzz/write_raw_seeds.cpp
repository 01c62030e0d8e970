// Writes a small RAW file of each kind into a folder, to begin fuzzing with.

#include "support/Pictures.h"
#include "support/RawFiles.h"

int main(int argumentCount, char** arguments) {
    using namespace ornivo::testing;
    if (argumentCount != 2) return 2;
    const std::string jpeg = jpegOf(filled(64, 48), {.exif = {.orientation = 6}});
    for (const RawKind kind : allRawKinds) {
        writeRaw(arguments[1], kind, {{jpeg}, {jpeg}},
                 {.adobe = AdobeMark::interoperability, .sensorBytes = 16});
    }
    return 0;
}
