#include "app/DeferredIdentifier.h"

#include <utility>

namespace ornivo::app {

DeferredIdentifier::DeferredIdentifier(ConfidencePolicy policy, Make make)
    : policy_(policy), made_(std::async(std::launch::async, std::move(make)).share()) {}

}  // namespace ornivo::app
