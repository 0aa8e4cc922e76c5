#include "base/ErrorTrap.h"

#include "base/RuntimeError.h"

#include <new>
#include <stdexcept>

namespace kaz {

namespace {

ErrorInfo Describe(ErrorNumber number, const char* description) noexcept {
    ErrorInfo info{static_cast<int>(number), {}};
    try {
        info.description = description;
    } catch (...) {
        info.description.clear();
    }
    return info;
}

}  // namespace

ErrorInfo CurrentError() noexcept {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return Describe(error.Number(), error.what());
    } catch (const std::bad_alloc&) {
        return Describe(ErrorNumber::OutOfMemory, DescriptionOf(ErrorNumber::OutOfMemory));
    } catch (const std::out_of_range&) {
        return Describe(ErrorNumber::SubscriptOutOfRange, DescriptionOf(ErrorNumber::SubscriptOutOfRange));
    } catch (const std::invalid_argument& error) {
        return Describe(ErrorNumber::InvalidCall, error.what());
    } catch (const std::exception& error) {
        return Describe(ErrorNumber::InternalError, error.what());
    } catch (...) {
        return Describe(ErrorNumber::InternalError, DescriptionOf(ErrorNumber::InternalError));
    }
}

}  // namespace kaz
