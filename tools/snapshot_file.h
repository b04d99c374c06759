// Writes whole files.
#pragma once

#include <string>

namespace snapshot {

// Replaces the file at once, or leaves it as it was: the text is written to a temporary file of the
// same folder, which is renamed. The file's mode is that of a new file. A symbolic link is
// followed. If it fails, as for a file that is not regular or not writable, returns false and
// stores the reason.
bool writeFile(const std::string& name, const std::string& text, std::string* complaint);

// The same for standard output, which may have got a part of the text when it fails.
bool writeOutput(const std::string& text, std::string* complaint);

}  // namespace snapshot
