#include "platform/FileDescriptor.h"

#include <unistd.h>

namespace ornivo {

FileDescriptor::~FileDescriptor() {
    if (isOpen()) ::close(descriptor_);
}

}  // namespace ornivo
