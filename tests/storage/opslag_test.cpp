#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <tuple>
#include <vector>

#include "headless_window.h"
#include "platform/files.h"
#include "platform/record_file.h"
#include "platform/scripted_dialogs.h"
#include "storage/opslag.h"

namespace zw {
namespace {

std::vector<float> recordsOf(const std::string& path) {
    QFile f(QString::fromStdString(path));
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray bytes = f.readAll();
    std::vector<float> records(static_cast<std::size_t>(bytes.size()) / 4);
    std::memcpy(records.data(), bytes.data(), records.size() * 4);
    return records;
}

void writeRecords(const std::string& path, const std::vector<float>& records) {
    RecordFile f(path);
    for (std::size_t r = 0; r < records.size(); ++r) {
        f.putSingle(static_cast<double>(r + 1), records[r]);
    }
}

struct Store {
    Store() { makeDirectory(dir.file("undoredo")); }
    TestDir dir;
    HeadlessWindow w;
    ScriptedDialogs dialogs;
    Opslag ops{w, dialogs, dir.path()};
};

// The count, two reserved records and the points with their weights; with an order, the order
// and L and knots 0 .. L (the spare slot too); three reserved records, the segment flag and the
// largest weight. Opened again and saved, every record comes back; without an order the knots are
// not read.
TEST(Opslag, TheRecordsWithAndWithoutAnOrderComeBack) {
    const std::tuple<int, double, std::vector<float>> cases[] = {
        {0, 2.5, {2, 0, 0, 10, 20, 1, 30, 40, 2.5, 50, 60, 1, 0, 0, 0, 0, 1, 8}},
        {4, 0.25, {2,  0,  0,  10, 20, 1, 30, 40, 0.25, 50, 60, 1, 4, 7,
                   -3, -2, -1, 0,  1,  2, 3,  0,  0,    0,  0,  0, 8}},
    };
    for (const auto& [k, weight, expected] : cases) {
        Store s, t;
        s.w.setCurve(std::max(k, 2), {{10, 20}, {30, 40}, {50, 60}});
        s.w.polygoon().orde = static_cast<float>(k);
        s.w.gewichten().zet_gewichten(1, weight);
        s.w.gewichten().zet_grootste_gewicht(8.0);
        s.w.segment = k == 0;
        s.ops.opslaan(s.dir.file("a.zwl"));
        EXPECT_EQ(recordsOf(s.dir.file("a.zwl")), expected) << k;
        t.w.gewichtstat = true;
        t.ops.openen(s.dir.file("a.zwl"));
        EXPECT_EQ(t.w.polygoon().orde_gezet, k > 0);
        t.ops.opslaan(t.dir.file("b.zwl"));
        EXPECT_EQ(recordsOf(t.dir.file("b.zwl")), expected) << k;
    }
}

TEST(Opslag, NoOrderLeavesTheKnotsAndOnlyExactlyOneIsTrue) {
    Store s;
    writeRecords(s.dir.file("a.zwl"), {0, 0, 0, 5, 6, 1, -1, 0, 0, 0, 1.0000001f, 1});
    s.w.setCurve(2, {{0, 0}, {1, 1}});
    s.w.segment = true;
    s.ops.openen(s.dir.file("a.zwl"));
    EXPECT_EQ(s.w.polygoon().orde, -1.0f);
    EXPECT_FALSE(s.w.polygoon().orde_gezet);
    EXPECT_EQ(s.w.vec().knopenlengte, 4.0f);  // untouched
    EXPECT_FALSE(s.w.segment);
}

TEST(Opslag, SavingReplacesALongerFileWholeAndAFailedSaveKeepsTheOld) {
    Store s;
    const std::string path = s.dir.file("a.zwl");
    writeRecords(path, std::vector<float>(100, 7.0f));
    s.w.setCurve(2, {{1, 1}, {2, 2}});
    s.ops.opslaan(path);
    EXPECT_EQ(fileLength(path), 4 * 21);  // R = 10, L = 4, N = 17

    s.w.gewichten().dimensioneer_gewichten(0);  // point 1 has no weight: the write fails
    EXPECT_EQ(errorOf([&] { s.ops.opslaan(path); }), kErrSubscript);
    EXPECT_EQ(fileLength(path), 4 * 21);
    EXPECT_FALSE(FileExists(path + ".~nieuw"));
}

TEST(Opslag, DamagedCountsEndWithARunTimeError) {
    const std::tuple<const char*, std::vector<float>, int> cases[] = {
        {"no count", {NAN}, kErrOverflow},
        {"negative count", {-5}, kErrSubscript},
        {"absurd count", {1e9f}, kErrOutOfMemory},
        {"absurd knot count", {0, 0, 0, 1, 1, 1, 3, 1e12f}, kErrOutOfMemory},
        {"no knot count", {0, 0, 0, 1, 1, 1, 3, NAN}, kErrOverflow},
        {"negative knot count", {0, 0, 0, 1, 1, 1, 3, -4}, kErrSubscript},
        {"short file", {3}, 0},  // points past the end read as (0, 0) with weight 0
        {"no file, and none made", {}, kErrFileNotFound},
    };
    for (const auto& [what, records, error] : cases) {
        Store s;
        if (!records.empty()) {
            writeRecords(s.dir.file("bad.zwl"), records);
        }
        EXPECT_EQ(errorOf([&] { s.ops.openen(s.dir.file("bad.zwl")); }), error) << what;
        EXPECT_EQ(FileExists(s.dir.file("bad.zwl")), !records.empty()) << what;
    }
}

}  // namespace
}  // namespace zw
