// Binds the file type of databases to the program, for the current user. Nobody is told of a failure.
#pragma once

// Writes the keys of the file type, or removes those that are the program's own. True in any case.
enum class FileType { Remove, Add };
bool RegisterFileType(FileType what);

// Asks the user which of the two it is to be. True if either was done.
bool PromptFileType();
