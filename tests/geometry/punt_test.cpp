#include "geometry/punt.h"

#include <gtest/gtest.h>

#include <tuple>

#include "platform/scripted_dialogs.h"
#include "test_support.h"

namespace zw {
namespace {

TEST(Punt, SomAddsInDoubleWithoutRounding) {
    const Punt a(0.25f, 0.0f);
    EXPECT_TRUE(a.som(Punt(0.25f, 0.0f)).isgelijkaan(Punt(0.5f, 0.0f)));
    EXPECT_EQ(a.X, 0.25f);
    // The Double sum 10000001.5 is stored as the nearest Single.
    EXPECT_EQ(Punt(1e7f, 0).som(Punt(1.5f, 0)).X, 10000002.0f);
    EXPECT_EQ(errorOf([] { Punt(3e38f, 0).som(Punt(3e38f, 0)); }), kErrOverflow);
}

TEST(Punt, ProduktRoundsHalvesToEvenAndProduktXYDoNot) {
    const std::tuple<float, float, double, float, float> cases[] = {
        {5, 7, 0.5, 2, 4},
        {-5, -7, 0.5, -2, -4},
        {3, 1, 0.5, 2, 0},
        {10, 10, 0.33, 3, 3},
    };
    for (const auto& [x, y, factor, ex, ey] : cases) {
        Punt r(99, 99);
        r.produkt(Punt(x, y), factor);
        EXPECT_TRUE(r.isgelijkaan(Punt(ex, ey))) << x << "," << y << " * " << factor;
    }
    EXPECT_DOUBLE_EQ(Punt(5, 7).produktX(0.5), 2.5);
    EXPECT_DOUBLE_EQ(Punt(5, 7).produktY(0.5), 3.5);
}

TEST(Punt, IsgelijkaanIsExact) {
    EXPECT_FALSE(Punt(1, 2).isgelijkaan(Punt(1, 2.001f)));
    Punt copy;
    copy.vulpunt(1, 2);
    EXPECT_TRUE(Punt(1, 2).isgelijkaan(copy));
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
