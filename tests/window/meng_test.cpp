#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>
#include <vector>

#include "headless_window.h"
#include "platform/scripted_dialogs.h"
#include "window/headless_editor.h"

namespace zw {
namespace {

// The pane in the whole editor: switched on from the menu, its marks, functions and frame drawn
// in order, the curve on the canvas, and switched off from the toolbar. Order 1 marks every knot
// as inner; its blossom weighs no control point, so its real range divides 0 by 0 (error 6) as
// the canvas does, after the marks.
TEST(Mengpaneel, KnotMarksFunctionsAndFrameWhileShown) {
    const std::tuple<int, int, bool> cases[] = {{4, 7, false}, {4, 7, true}, {1, 4, false}};
    for (const auto& [k, count, open] : cases) {
        SCOPED_TRACE(k * 10 + open);
        TestDir dir;
        ScriptedDialogs dialogs;
        HeadlessEditor w(dir.path(), dialogs, 800, 600);
        w.start();
        std::mt19937 rng(9);
        std::uniform_int_distribution<int> at(500, 9000);
        std::vector<std::pair<float, float>> points;
        for (int i = 0; i < count; ++i) {
            points.emplace_back(static_cast<float>(at(rng)), static_cast<float>(at(rng)));
        }
        setCurve(w, k, points, open);
        w.meng().setLogging(true);
        w.Doek().setLogging(true);
        ASSERT_EQ(errorOf([&] { w.klik("mntBeeldMengFuncties"); }), k == 1 ? kErrOverflow : 0);
        ASSERT_TRUE(w.mengstat);
        EXPECT_TRUE(w.menus().vinkje("mntBeeldMengFuncties") && w.knoppen().vinkje("Mengfuncties"));
        const Surface& meng = w.meng();
        const double side = w.berngrootte;
        EXPECT_EQ(std::make_tuple(meng.left(), meng.top(), meng.width(), meng.height()),
                  std::make_tuple(w.Doek().scaleWidth() - side, 0.0, side, side));

        // The domain's ends up the frame, then a tick per knot: the outer ones, then the inner.
        const std::vector<double> u = HeadlessWindow::knotsOf(w);
        const int L = static_cast<int>(u.size());
        const auto x = [&](int i) { return (u[i] - u[0]) / ((u[L - 1] - u[0]) / 1000000); };
        std::vector<std::tuple<double, double, Colour>> marks = {{x(k - 1), 100, w.lijnkleur},
                                                                 {x(L - k), 100, w.lijnkleur}};
        for (int i = 0; i < L; ++i) {
            if (i <= k - 2 || i >= L - k + 1) {
                marks.emplace_back(x(i), -10, w.virtueel);
            }
        }
        for (int i = k - 1; i <= L - k; ++i) {
            marks.emplace_back(x(i), -10, w.Reeel);
        }
        const std::vector<DrawRecord>& log = meng.log();
        ASSERT_GE(log.size(), marks.size() + (k > 1 ? 3 : 0));
        for (std::size_t m = 0; m < marks.size(); ++m) {
            const auto& [mx, top, colour] = marks[m];
            EXPECT_EQ(std::make_tuple(log[m].x1, log[m].y1, log[m].x2, log[m].y2, log[m].colour),
                      std::make_tuple(mx, 0.0, mx, top, colour));
        }
        // The frame's sides and its stub at the origin, not a base line.
        const double frame[3][4] = {{0, 0, 0, 100}, {1e6, 0, 1e6, 100}, {0, 0, 100, 0}};
        for (int m = 0; k > 1 && m < 3; ++m) {
            const DrawRecord& r = log[log.size() - 3 + m];
            EXPECT_EQ(
                std::make_tuple(r.x1, r.y1, r.x2, r.y2, r.colour),
                std::make_tuple(frame[m][0], frame[m][1], frame[m][2], frame[m][3], w.lijnkleur));
        }
        w.Tb_ButtonClick("Mengfuncties");
        EXPECT_FALSE(w.mengstat || w.menus().vinkje("mntBeeldMengFuncties") ||
                     w.knoppen().vinkje("Mengfuncties"));
        EXPECT_EQ(meng.width(), 0.0);
        if (k == 1) {
            continue;
        }

        // The canvas keeps its curve: the pane's paint draws it there; the points are coloured.
        w.klik("mntBeeldMengFuncties");
        w.Doek().refresh();
        const std::vector<DrawRecord>& doek = w.Doek().log();
        EXPECT_TRUE(std::any_of(doek.begin(), doek.end(), [&](const DrawRecord& r) {
            return r.kind == DrawKind::kLine && r.colour == w.krommekleur;
        }));
        EXPECT_EQ(doek.front().colour, w.kleur(0));
    }
}

}  // namespace
}  // namespace zw
