// The dialogs in which the user chooses files, in the words of the language.
#pragma once

#include "toolkit/file_dialog.h"

enum class FileDialogUse { OpenDatabase = 0, SaveDatabase = 1, ChooseProgram = 2, Export = 3 };

// Made on first use, and made anew when the language has changed; lives as long as the program.
tvFileDialog& GetFileDialog(FileDialogUse use);
