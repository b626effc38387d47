// Small helpers shared by the model's tests.
#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/array.h"
#include "platform/runtime_error.h"
#include "platform/surface.h"

namespace zw {

// The classic error number an action raises, 0 when it raises none.
template <typename F>
int errorOf(F&& action) {
    try {
        action();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

// The values as an array counted from 0, the form every argument list and knot list takes.
inline Array<double> arrayOf(const std::vector<double>& values) {
    Array<double> a(static_cast<double>(values.size()) - 1);
    for (std::size_t i = 0; i < values.size(); ++i) {
        a(static_cast<double>(i)) = values[i];
    }
    return a;
}

// The argument list of the curve point at t for order k: k equal values.
inline Array<double> equalArgs(float k, double t) {
    return arrayOf(std::vector<double>(static_cast<std::size_t>(k), t));
}

// A drawing record's fields, to compare whole records at once.
inline auto fieldsOf(const DrawRecord& r) {
    return std::make_tuple(r.kind, r.x1, r.y1, r.x2, r.y2, r.radius, r.colour, r.drawWidth,
                           r.fillStyle, r.fillColour);
}

// Every record's fields, to compare whole logs at once.
inline auto fieldsOf(const std::vector<DrawRecord>& log) {
    std::vector<decltype(fieldsOf(log[0]))> fields;
    for (const DrawRecord& r : log) {
        fields.push_back(fieldsOf(r));
    }
    return fields;
}

// The records of one kind, and of one colour if given, in a surface's log.
inline std::vector<DrawRecord> recordsOf(const Surface& s, DrawKind kind,
                                         std::optional<Colour> colour = std::nullopt) {
    std::vector<DrawRecord> records;
    std::copy_if(s.log().begin(), s.log().end(), std::back_inserter(records),
                 [&](const auto& r) { return r.kind == kind && (!colour || r.colour == *colour); });
    return records;
}

// A fresh temporary directory per test, removed afterwards.
class TestDir {
  public:
    TestDir() : dir_(QDir::tempPath() + QStringLiteral("/zwierlijn-test-XXXXXX")) {}
    std::string path() const { return dir_.path().toStdString(); }
    std::string file(const std::string& name) const { return path() + "/" + name; }

  private:
    QTemporaryDir dir_;
};

}  // namespace zw
