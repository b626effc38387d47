#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/array.h"
#include "platform/event_guard.h"
#include "platform/scripted_dialogs.h"
#include "test_support.h"

namespace zw {
namespace {

TEST(RuntimeError, CarriesTheClassicNumberAndText) {
    EXPECT_EQ(RuntimeError(1234).text(), standardErrorText(95));  // no text of its own
    EXPECT_EQ(errorMessage(RuntimeError(9)),
              "Fout 9 tijdens uitvoering:\n\nHet subscript valt buiten het bereik");
}

TEST(EventGuard, AnErrorEndsTheActionWithItsMessageAndTheProgramCarriesOn) {
    ScriptedDialogs dialogs;
    EventGuard guard(dialogs);
    bool reached = false;
    EXPECT_FALSE(guard.run([] { Array<double>(2)(3) = 1; }));
    EXPECT_TRUE(guard.run([&] { reached = true; }));
    EXPECT_TRUE(reached);
    guard.run([] { throw std::bad_alloc(); });
    guard.run([] { throw 42; });
    ASSERT_EQ(dialogs.messages().size(), 3u);
    const int expected[] = {kErrSubscript, kErrOutOfMemory, kErrInternal};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(dialogs.messages()[i].text, errorMessage(RuntimeError(expected[i])));
    }
}

}  // namespace
}  // namespace zw
