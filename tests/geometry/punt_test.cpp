#include "geometry/punt.h"

#include <gtest/gtest.h>

#include "platform/runtime_error.h"
#include "platform/scripted_dialogs.h"

namespace zw {
namespace {

TEST(Punt, FreshPointIsOrigin) {
    const Punt p;
    EXPECT_EQ(p.X, 0.0f);
    EXPECT_EQ(p.Y, 0.0f);
}

TEST(Punt, SomAddsWithoutRoundingAndLeavesTheReceiver) {
    const Punt a(0.25f, 0.0f);
    const Punt s = a.som(Punt(0.25f, 0.0f));
    EXPECT_EQ(s.X, 0.5f);
    EXPECT_EQ(s.Y, 0.0f);
    EXPECT_EQ(a.X, 0.25f);
    const Punt t = Punt(1e7f, -3.5f).som(Punt(1.5f, 1.25f));
    EXPECT_EQ(t.X, 10000002.0f);  // the Double sum 10000001.5 stored as the nearest Single
    EXPECT_EQ(t.Y, -2.25f);
    EXPECT_THROW(Punt(3e38f, 0).som(Punt(3e38f, 0)), RuntimeError);
}

TEST(Punt, ProduktRoundsHalvesToEven) {
    const struct {
        float x, y;
        double factor;
        float ex, ey;
    } cases[] = {
        {5, 7, 0.5, 2, 4},      // 2.5 -> 2, 3.5 -> 4
        {-5, -7, 0.5, -2, -4},  //
        {3, 1, 0.5, 2, 0},      // 1.5 -> 2, 0.5 -> 0
        {1000, 7000, 1.0, 1000, 7000},
        {10, 10, 0.33, 3, 3},
    };
    for (const auto& c : cases) {
        Punt r(99, 99);
        r.produkt(Punt(c.x, c.y), c.factor);
        EXPECT_EQ(r.X, c.ex) << c.x << " * " << c.factor;
        EXPECT_EQ(r.Y, c.ey) << c.y << " * " << c.factor;
    }
    Punt self(5, 7);
    self.produkt(self, 0.5);
    EXPECT_TRUE(self.isgelijkaan(Punt(2, 4)));
}

TEST(Punt, ProduktXAndYAreNotRounded) {
    const Punt p(5, 7);
    EXPECT_DOUBLE_EQ(p.produktX(0.5), 2.5);
    EXPECT_DOUBLE_EQ(p.produktY(0.5), 3.5);
}

TEST(Punt, IsgelijkaanIsExact) {
    EXPECT_FALSE(Punt(1, 2).isgelijkaan(Punt(1, 2.001f)));
    Punt copy;
    copy.vulpunt(1, 2);
    EXPECT_TRUE(Punt(1, 2).isgelijkaan(copy));
    EXPECT_FALSE(Punt(1, 2).isgelijkaan(Punt(2, 1)));
}

TEST(Punt, PrintpuntShowsTheShortestTexts) {
    ScriptedDialogs dialogs;
    Punt(1000, 7000).printpunt(dialogs);
    Punt(0.5f, -2.25f).printpunt(dialogs);
    ASSERT_EQ(dialogs.messages().size(), 2u);
    EXPECT_EQ(dialogs.messages()[0].text, "Punt: (1000,7000)");
    EXPECT_EQ(dialogs.messages()[1].text, "Punt: (0.5,-2.25)");
}

}  // namespace
}  // namespace zw
