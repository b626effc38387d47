// A fresh temporary directory per test, removed afterwards.
#pragma once

#include <filesystem>
#include <string>

#include <QTemporaryDir>

namespace zw {

class TestDir {
  public:
    TestDir() : dir_(QDir::tempPath() + QStringLiteral("/zwierlijn-test-XXXXXX")) {}
    std::string path() const { return dir_.path().toStdString(); }
    std::string file(const std::string& name) const { return path() + "/" + name; }

  private:
    QTemporaryDir dir_;
};

}  // namespace zw
