#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "platform/array.h"
#include "platform/event_guard.h"
#include "platform/runtime_error.h"
#include "platform/scripted_dialogs.h"

namespace zw {
namespace {

TEST(RuntimeError, CarriesTheClassicNumberAndText) {
    const struct {
        int number;
        const char* text;
    } cases[] = {
        {5, "Ongeldige procedure-aanroep of ongeldig argument"},
        {6, "Overloop"},
        {7, "Onvoldoende geheugen"},
        {9, "Het subscript valt buiten het bereik"},
        {11, "Deling door nul"},
        {13, "Typen komen niet met elkaar overeen"},
        {52, "Ongeldige bestandsnaam of ongeldig bestandsnummer"},
        {53, "Kan bestand niet vinden"},
        {75, "Fout bij toegang tot pad/bestand"},
        {76, "Kan pad niet vinden"},
        {91, "Objectvariabele of blokvariabele With is niet ingesteld"},
    };
    for (const auto& c : cases) {
        const RuntimeError error(c.number);
        EXPECT_EQ(error.number(), c.number);
        EXPECT_EQ(error.text(), c.text);
        EXPECT_STREQ(error.what(), c.text);
    }
    EXPECT_EQ(errorMessage(RuntimeError(9)),
              "Fout 9 tijdens uitvoering:\n\nHet subscript valt buiten het bereik");
    EXPECT_FALSE(RuntimeError(1234).text().empty());
}

struct Window : ShowableWindow {
    std::string windowName() const override { return "Kleurtjes"; }
};

TEST(EventGuard, AnErrorEndsTheActionWithItsMessageAndTheProgramCarriesOn) {
    ScriptedDialogs dialogs;
    EventGuard guard(dialogs);
    int after = 0;
    EXPECT_FALSE(guard.run([&] {
        Array<double> a(2);
        a(3) = 1;  // out of bounds
        after = 1;
    }));
    EXPECT_EQ(after, 0);
    ASSERT_EQ(dialogs.messages().size(), 1u);
    EXPECT_EQ(dialogs.messages()[0].text, errorMessage(RuntimeError(kErrSubscript)));
    EXPECT_TRUE(guard.run([&] { after = 2; }));
    EXPECT_EQ(after, 2);
    EXPECT_EQ(dialogs.messages().size(), 1u);
}

TEST(EventGuard, ForeignExceptionsBecomeClassicErrors) {
    ScriptedDialogs dialogs;
    EventGuard guard(dialogs);
    guard.run([] { throw std::bad_alloc(); });
    guard.run([] { throw std::logic_error("bug"); });
    guard.run([] { throw 42; });
    ASSERT_EQ(dialogs.messages().size(), 3u);
    EXPECT_EQ(dialogs.messages()[0].text, errorMessage(RuntimeError(kErrOutOfMemory)));
    EXPECT_EQ(dialogs.messages()[1].text, errorMessage(RuntimeError(kErrInternal)));
    EXPECT_EQ(dialogs.messages()[2].text, errorMessage(RuntimeError(kErrInternal)));
}

TEST(ScriptedDialogs, AnswersInOrderThenCancels) {
    ScriptedDialogs dialogs;
    dialogs.queueFileName("/tmp/a.zwl");
    dialogs.queueColour(rgb(1, 2, 3));
    FileDialogRequest request{"zwierlijnbestanden (*.zwl) |*.zwl", ".zwl", ""};
    EXPECT_EQ(dialogs.openFileName(request), "/tmp/a.zwl");
    EXPECT_EQ(dialogs.saveFileName(request), "");
    EXPECT_EQ(dialogs.chooseColour(0), rgb(1, 2, 3));
    EXPECT_EQ(dialogs.chooseColour(0), std::nullopt);
    ASSERT_EQ(dialogs.fileRequests().size(), 2u);
    EXPECT_FALSE(dialogs.fileRequests()[0].save);
    EXPECT_TRUE(dialogs.fileRequests()[1].save);
    EXPECT_EQ(dialogs.fileRequests()[1].request.defaultExtension, ".zwl");
    EXPECT_EQ(dialogs.colourRequests(), 2);
}

TEST(ScriptedDialogs, ModalShowRunsTheScriptedUserBeforeReturning) {
    ScriptedDialogs dialogs;
    Window window;
    int seen = 0;
    dialogs.onModal([&](ShowableWindow& w) { seen += w.windowName() == "Kleurtjes"; });
    dialogs.show(window, false);
    dialogs.show(window, true);
    EXPECT_EQ(seen, 1);
    ASSERT_EQ(dialogs.shown().size(), 2u);
    EXPECT_FALSE(dialogs.shown()[0].modal);
    EXPECT_TRUE(dialogs.shown()[1].modal);
}

}  // namespace
}  // namespace zw
