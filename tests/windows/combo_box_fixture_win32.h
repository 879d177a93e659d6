// A window with an extended combo box, keys for it, and the world that its object sees.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/complement_combo_box.h"
#include "core/files/fake_folders.h"
#include "core/lang/message_text.h"
#include "core/settings/memory_store.h"
#include "core/transfer/model_ports.h"
#include "desktop/message_boxes_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {

using Texts = std::vector<std::wstring>;

/// The window is shown, since focus and lists need one. The combo box is 260 pixels wide.
class ComboBoxTest : public testing::Test {
protected:
    ComboBoxTest();
    ~ComboBoxTest() override;

    /// The object under test, attached in the constructor of the derived fixture.
    virtual controls::CComplementComboBox& Box() = 0;
    HWND Control() const { return control_; }
    HWND Parent() const { return parent_.Get(); }

    /// Puts `text` into the edit field with the caret at its end, or with the selection given.
    void Type(const std::wstring& text);
    void Type(const std::wstring& text, int selectionStart, int selectionEnd);

    std::wstring Text() { return Box().EditText(); }

    /// The selection as start and end.
    std::pair<int, int> Selection();

    /// Whether the control consumed `key`, sent to the part of it that has the focus while `held`
    /// are held. What it does not consume is not dispatched.
    bool Press(int key, std::vector<int> held = {});

    /// Whether the control consumed a mouse message over its edit field.
    bool Mouse(UINT message);

    /// The texts that the list shows.
    Texts Shown();

    bool IsOpen() { return Box().IsListOpen(); }

    /// Dispatches what is in the message queue; gives the commands that were posted to the parent.
    std::vector<int> PumpCommands();

    FakeFolders folders_;
    transfer::model::World world_;
    transfer::model::ModelFileSystem info_{world_};
    MemoryStore store_;
    MessageText catalogueSource_{L"62400\tHistory\r\n63007\t: clear?\r\n"};
    desktop::MessageBoxes speaker_;
    lang::Catalogue messages_{catalogueSource_, L"Msg.txt", speaker_};

private:
    HWND FocusedPart();

    TestWindow parent_;
    HWND control_ = nullptr;
};

}  // namespace ferry::test
