// The whole editor in a temporary program directory, for the model's tests of the main window.
#pragma once

#include <filesystem>

#include <gtest/gtest.h>

#include "headless_window.h"
#include "platform/event_guard.h"
#include "platform/scripted_dialogs.h"
#include "window/headless_editor.h"

namespace zw {

struct Editor {
    explicit Editor(int breedte = 800, int hoogte = 600) : w(dir.path(), dialogs, breedte, hoogte) {
        std::filesystem::create_directory_symlink(ZW_WAVELET_DIR, dir.file("Wavelet"));
        EXPECT_TRUE(EventGuard(dialogs).run([&] { w.start(); }));
    }
    TestDir dir;
    ScriptedDialogs dialogs;
    HeadlessEditor w;
};

}  // namespace zw
