// Pictures of the gallery as PNG files, one a theme, and of its message boxes.
#pragma once

#include "foundation/tvstring.h"
#include "tests/gallery/gallery_dialog.h"

// Takes them with the gallery open, under each theme of the list, and names them for it. False if a file
// could not be written.
bool TakePictures(GalleryDialog& gallery, const tvstring& folder);
