#include "platform/event_guard.h"

#include <new>

#include "platform/runtime_error.h"
#include "platform/werk.h"

namespace zw {

bool EventGuard::run(const std::function<void()>& handler) noexcept {
    int number = 0;
    try {
        Werkbudget budget;
        handler();
        return true;
    } catch (const RuntimeError& error) {
        number = error.number();
    } catch (const std::bad_alloc&) {
        number = kErrOutOfMemory;
    } catch (...) {
        number = kErrInternal;
    }
    try {
        dialogs_.message(errorMessage(RuntimeError(number)));
    } catch (...) {
        // The message itself failed (no memory left to show it): carry on regardless.
    }
    return false;
}

}  // namespace zw
