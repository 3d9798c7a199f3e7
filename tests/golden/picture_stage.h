// What the pictures of the program's windows share: a main window under a theme, in fonts that depend on no
// settings, with content that is the same every day.
#pragma once

#include <string>

#include "tests/app/app_stage.h"

// Where pictures go.
std::string& PictureFolder();

class WindowPictures : public AppTest, public testing::WithParamInterface<const char16_t*> {
protected:
    using Step = std::function<bool()>;
    using Action = std::function<void()>;

    WindowPictures();
    ~WindowPictures() override;

    // The main window, in front, in a size that depends on no settings.
    void OpenMain();

    // The same with the database "Private", saved and without a history, and its item "Bank" shown. Its
    // texts and its date are always the same.
    void OpenDatabase();

    // Writes the client area of a window, as FOLDER/SCENE-THEME.bmp, once all is painted.
    static void Take(HWND window, const std::string& scene);

    // Carries out what brings up a dialog, takes its picture once it has the keyboard, and cancels it. What
    // else is to be done before the picture is done with the dialog's window.
    void TakeDialog(const std::string& scene, const Action& open,
                    const std::function<void(HWND)>& before = {}) const;
    void TakeDialogOf(u16 command, const std::string& scene) const;

    // Carries out a command of the detail pane on a field, as if the mouse were over it.
    void ModifyField(u16 field) const;

    // Selects these rows of a list alone, and waits until everybody knows.
    void SelectItems(const std::vector<int>& rows) const;

private:
    void Resize(int width, int height) const;
};
