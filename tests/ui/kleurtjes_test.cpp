#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "editor_fixture.h"
#include "ui/kleurtjes.h"

namespace zw {
namespace {

struct Dialog {
    Dialog() {
        RecordFile(dir.file("zwierlijn")).putLong(12, 0);
        form = std::make_unique<Kleurtjes>(w, dialogs, guard, dir.path());
    }
    std::int32_t record(int r) { return RecordFile(dir.file("zwierlijn")).getLong(r); }
    void type(QLineEdit* box, const char* text) {
        box->selectAll();
        QTest::keyClicks(box, QString::fromLatin1(text));
    }

    TestDir dir;
    HeadlessWindow w;
    ScriptedDialogs dialogs;
    EventGuard guard{dialogs};
    std::unique_ptr<Kleurtjes> form;
};

// The records are the ones the editor reads at start-up.
TEST(Kleurtjes, ColourButtonsAndTheRadiusSetTheirVariableAndRecord) {
    Dialog d;
    int colour = 100;
    for (const ColourSetting& c : kColourSettings) {
        d.dialogs.queueColour(++colour);
        d.form->knop(c.button)->click();
        EXPECT_EQ(d.w.*(c.variable), colour) << c.button;
        EXPECT_EQ(d.record(c.record), colour) << c.button;
    }
    EXPECT_EQ(d.w.Doek().backColour(), 104);
    // Cancelled: nothing changes.
    d.dialogs.queueColour(std::nullopt);
    d.form->knop("Kromme")->click();
    EXPECT_EQ(d.w.krommekleur, 102);
    EXPECT_EQ(d.record(2), 102);
    // The radius is rounded, halves to even.
    d.form->show();
    for (const auto& [text, expected] : {std::pair{"12.6", 13}, {"12.5", 12}, {"abc", 0}}) {
        d.type(d.form->Straal(), text);
        QTest::keyClick(d.form->Straal(), Qt::Key_Return);
        EXPECT_EQ(d.w.ControleStraal, expected) << text;
        EXPECT_EQ(d.record(6), expected) << text;
    }
}

TEST(Kleurtjes, EnterAppliesTheLastValidatedValueAndOnlyMovingWithinTheDialogValidates) {
    Dialog d;
    d.w.berngrootte = 3000;
    d.form->show();
    d.form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(d.form.get()));
    d.form->bern()->setFocus();
    EXPECT_EQ(d.form->bern()->text(), "3000");
    d.type(d.form->bern(), "2500");
    QTest::keyClick(d.form->bern(), Qt::Key_Return);
    EXPECT_EQ(d.w.berngrootte, 0);  // nothing validated yet
    d.form->Straal()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(d.w.berngrootte, 2500);
    EXPECT_EQ(d.record(7), 2500);
    // A switch to another window validates nothing: the box's text is stale after a zoom, which
    // the dialog shows when it is active again.
    d.w.ControleStraal = 30;
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QCoreApplication::sendEvent(d.form->Straal(), &away);
    EXPECT_EQ(d.w.ControleStraal, 30);
    EXPECT_NE(d.record(6), 30);
    QEvent back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(d.form.get(), &back);
    EXPECT_EQ(d.form->Straal()->text(), "30");
    d.type(d.form->Straal(), "77");
    d.form->knop("Exit")->click();
    EXPECT_EQ(d.w.ControleStraal, 77);
    EXPECT_FALSE(d.form->isVisible());
}

}  // namespace
}  // namespace zw
