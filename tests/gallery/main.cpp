// The gallery: every control of the toolkit in every state and theme.
//
//   gallery [--theme NAME] [--first-paint] [--pictures FOLDER]
//
//   --theme NAME         opens it in this theme
//   --first-paint        ends as soon as the window has been painted once
//   --pictures FOLDER    writes one picture a theme into the folder, in a font that depends on no settings,
//   and ends
#include "tests/gallery/pictures.h"
#include "tests/gui/pinned_font.h"
#include "toolkit/app.h"
#include "toolkit/theme.h"

namespace {

struct Options {
    tvstring theme;
    tvstring pictures;
    bool firstPaint = false;
    bool good = true;
};

Options ReadOptions(int count, const wchar_t* const* arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const tvstring argument = Units(arguments[i]);
        const bool hasMore = i + 1 < count;
        if (argument == u"--first-paint") {
            options.firstPaint = true;
        } else if (argument == u"--theme" && hasMore) {
            options.theme = Units(arguments[++i]);
        } else if (argument == u"--pictures" && hasMore) {
            options.pictures = Units(arguments[++i]);
        } else {
            options.good = false;
        }
    }
    return options;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int) {
    constexpr int kBadArguments = 2;
    constexpr int kFailed = 1;
    constexpr float kLarge = 1.45F;
    const Options options = ReadOptions(__argc, __wargv);
    const int theme = options.theme.empty() ? TheTheme().DefaultIndex() : TheTheme().FindTheme(options.theme);
    if (!options.good || theme < 0) return kBadArguments;
    tvBaseApp app;
    // Scroll boxes are not made under System Default.
    TheTheme().Apply(options.pictures.empty() ? theme : 0);
    if (!options.pictures.empty()) TheTheme().SetFont(PinnedFont(), kLarge);
    GalleryDialog gallery;
    app.m_mainWnd = &gallery;
    bool failed = false;
    if (options.firstPaint) gallery.m_onFirstPaint = [&] { gallery.EndDialog(IDOK); };
    if (!options.pictures.empty()) {
        gallery.m_onFirstPaint = [&] {
            failed = !TakePictures(gallery, options.pictures);
            gallery.EndDialog(IDOK);
        };
    }
    if (gallery.DoModal() < 0) failed = true;
    return failed ? kFailed : 0;
}
