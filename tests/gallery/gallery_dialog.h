// The window of the gallery: everything that the toolkit paints, in all themes.
#pragma once

#include "tests/gallery/control_map.h"
#include "tests/gallery/inputs.h"
#include "tests/gallery/lists.h"
#include "tests/gallery/sheet.h"
#include "tests/gallery/state_table.h"
#include "toolkit/base_dialog.h"
#include "toolkit/button_icon.h"
#include "toolkit/button_link.h"
#include "toolkit/button_note.h"
#include "toolkit/button_split.h"
#include "toolkit/font.h"
#include "toolkit/status_bar.h"

class GalleryDialog : public tvBaseDlg {
public:
    GalleryDialog();
    ~GalleryDialog() override;

    // What is done once the window has been painted for the first time.
    std::function<void()> m_onFirstPaint;

    // Shows a message box, counted from 0, and waits for its answer.
    void ShowMessage(int which);
    [[nodiscard]] static int MessageCount();

    // Shows a text in the status bar, counted from 0.
    void ShowStatus(int which);

    // Where a tool tip covers nothing, in pixels of the client area.
    [[nodiscard]] PixelSize TipPlace() const;

    void OnSubclassControls() override;
    bool OnInitDialog() override;
    void OnAutoSize() override;
    void OnLayout() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void AddTopRow();
    void AddNotes();
    void AddMessages();
    void AddBottom();
    void WrapButtons();
    void SetTexts() const;
    void LoadIcons();
    void Place(int id, int x, int y, int cx, int cy) const;
    void PlaceRow(int first, int count, int y, int width) const;
    void LayOut();
    void PlaceSheets() const;
    void PlacePanes();
    void PlaceStatusBar();
    bool OnCommand(int id);
    void ChooseFont(int change);
    void OnFirstPaint();
    void OnSplit();
    [[nodiscard]] PixelSize ToPixels(int x, int y) const;

    ControlMap m_controls;
    StateTable m_states;
    Inputs m_inputs;
    Lists m_lists;
    std::vector<std::unique_ptr<tvButton>> m_buttons;  // of the rows, in their order
    tvButton_Note m_noteIcon;
    Posed<tvButton_Note> m_noteHot;
    tvButton_Note m_noteDisabled;
    Sheet m_glyphs;
    PictureSheet m_pictures;
    Sheet m_shapes;
    Sheet m_texts;
    Sheet m_leftPane;
    Sheet m_rightPane;
    tvButton_Split m_split;
    tvStatusBar m_status;
    tvIconHandle m_picture;  // in the theme's colour
    int m_splitX = 0;        // pixels; 0: in the middle
    RECT m_laidOut{};        // the client area and the font that the controls lie in place for
    HFONT m_laidOutFont = nullptr;
    bool m_painted = false;
};
