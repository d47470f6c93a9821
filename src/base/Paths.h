#pragma once
// Splitting and joining paths as plain text. Backslash paths ("C:\a\x", "\\host\share")
// follow the program's own rules; an absolute Linux path ("/home/a/x") uses "/" where
// those rules use "\", and its root "/" is its drive.
#include <string>

namespace aq {

// `folder` directly followed by `name` when `folder` ends in ":" (or is a Linux
// folder ending in "/"), else the two joined by one separator.
std::string joinPath(const std::string& folder, const std::string& name);
// Splits `whole` into `folder` and `file`; `folder` + `file` gives `whole` back
// but for the separator between them.
void SplitPath(const std::string& whole, std::string& folder, std::string& file);
std::string fileNameOfPath(const std::string& path);
std::string folderOfPath(const std::string& path);
// "C:" of "C:\x", "\\host" of "\\host\share\x", "/" of "/home/a", else "".
std::string driveOfPath(const std::string& path);

// A child folder as the folder discovery forms it: `folder`, a separator, `name`,
// with no test for a trailing separator but at a Linux root.
std::string childPath(const std::string& folder, const std::string& name);
// True for an absolute Linux path, which takes "/" as its separator.
bool isSlashPath(const std::string& path);

std::string trimmed(const std::string& s);
std::string lowered(std::string s);

}  // namespace aq
