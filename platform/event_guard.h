// Every event handler runs inside an EventGuard: a run-time error ends the handler's user
// action with the run time's message and the program carries on. Each run is one action with
// a budget of work of its own (platform/werk.h).
#pragma once

#include <functional>

#include "platform/dialogs.h"

namespace zw {

class EventGuard {
  public:
    explicit EventGuard(Dialogs& dialogs) : dialogs_(dialogs) {}

    // Runs the handler; returns false when it ended in an error (after showing the message).
    // Nothing escapes: a failed allocation is reported as error 7, any other exception as
    // error 51.
    bool run(const std::function<void()>& handler) noexcept;

  private:
    Dialogs& dialogs_;
};

}  // namespace zw
