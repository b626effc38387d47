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
    EXPECT_EQ(RuntimeError(kErrOverflow).text(), "Overloop");
    EXPECT_EQ(RuntimeError(kErrPathNotFound).text(), "Kan pad niet vinden");
    EXPECT_EQ(RuntimeError(1234).text(), standardErrorText(95));  // no text of its own
    EXPECT_EQ(errorMessage(RuntimeError(9)),
              "Fout 9 tijdens uitvoering:\n\nHet subscript valt buiten het bereik");
}

TEST(EventGuard, AnErrorEndsTheActionWithItsMessageAndTheProgramCarriesOn) {
    ScriptedDialogs dialogs;
    EventGuard guard(dialogs);
    int reached = 0;
    EXPECT_FALSE(guard.run([&] {
        Array<double> a(2);
        a(3) = 1;
        reached = 1;
    }));
    EXPECT_TRUE(guard.run([&] { reached = 2; }));
    EXPECT_EQ(reached, 2);
    guard.run([] { throw std::bad_alloc(); });
    guard.run([] { throw std::logic_error("bug"); });
    guard.run([] { throw 42; });
    ASSERT_EQ(dialogs.messages().size(), 4u);
    const int expected[] = {kErrSubscript, kErrOutOfMemory, kErrInternal, kErrInternal};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(dialogs.messages()[i].text, errorMessage(RuntimeError(expected[i])));
    }
}

struct Window : ShowableWindow {
    std::string windowName() const override { return "Kleurtjes"; }
};

TEST(ScriptedDialogs, CancelsWhenTheScriptRunsOutAndPlaysTheModalUser) {
    ScriptedDialogs dialogs;
    dialogs.queueFileName("/tmp/a.zwl");
    EXPECT_EQ(dialogs.openFileName({}), "/tmp/a.zwl");
    EXPECT_EQ(dialogs.saveFileName({}), "");
    EXPECT_EQ(dialogs.chooseColour(0), std::nullopt);
    Window window;
    int modalRuns = 0;
    dialogs.onModal([&](ShowableWindow&) { ++modalRuns; });
    dialogs.show(window, false);
    dialogs.show(window, true);
    EXPECT_EQ(modalRuns, 1);
}

}  // namespace
}  // namespace zw
