// Paths and folders. A path is text in the system's own syntax; '\' below means the system's separator.
#pragma once

#include "foundation/tvhandle.h"
#include "foundation/tvstring.h"

// The path with its variables expanded: %NAME% of the environment, then %{folder identifier}% of the
// system's known folders. What cannot be expanded stays as it stands.
tvstring ExpandPath(const tvstring& path);

enum PathKinds : int { PATH_NONE = 0, PATH_FILE = 1, PATH_FOLDER = 2 };

// What stands at the expanded path: 0 nothing (or an empty path), 1 a file, 2 a folder.
int PathKind(const tvstring& path);

// Makes the folder with all missing parents; true if it is there afterwards. On Windows a path of up to two
// units counts as a drive, which is taken to be there. False for an empty path, a file
// in the way or a failure, with the cause in the last error, which is set to 0 at the start.
bool CreateDirectories(const tvstring& path);

// Opens a file for reading (shared with everybody) or for writing: then missing folders are made, the
// file's attributes cleared and the file created anew, with no sharing. An empty handle on failure, with the
// cause in the last error, which is set to 0 at the start.
tvhandle OpenFileHandle(const tvstring& path, bool forWrite);

// The two texts with one separator between them, added only if both are not empty and neither has one at
// the seam.
tvstring JoinPath(const tvstring& folder, const tvstring& name);

// The path without its last component and the separator in front of it, which stays only where it is a
// root's ("/vmr" gives "/", "C:\vmr.exe" gives "C:\"). Empty for a path without separators.
tvstring ParentFolder(const tvstring& path);

// With a null name the folder of the program's file, with an empty one that file's full path, otherwise the
// folder joined with the name.
tvstring ProgramPath(const char16_t* name);

// True for an empty name, "." and "..".
bool IsDotName(const tvstring& name);

// The last component, with the separators that stand behind it, if any ("C:\a\b" gives "b", "C:\a\" "a\").
tvstring FileNameOf(const tvstring& path);

// The extension of the last component with its dot, or an empty text. A blank behind the dot means none.
tvstring ExtensionOf(const tvstring& path);
