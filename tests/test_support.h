// Small helpers shared by the model's tests.
#pragma once

#include <QDir>
#include <QTemporaryDir>
#include <string>

#include "platform/runtime_error.h"

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
