#pragma once
// Saving what the map or the genome picture shows as a picture file, so users can share
// what they bred. The file name's extension picks the format, here and on the command line.
#include <QSize>
#include <functional>
#include <string>

class QPainter;

namespace aq {
class Ui;
}

namespace aqapp {

using PaintFn = std::function<void(QPainter&)>;

// The extension of `path` in lower case when it names a format a picture can be written
// in: SVG, or one Qt has an image writer for here (PNG, JPEG, BMP, WebP with its plugin ...).
// "" otherwise.
std::string pictureFormat(const std::string& path);
// Those extensions, as ".bmp, .jpeg, ..., .svg".
std::string pictureExtensions();
// Why `path` can't be written as a picture, naming the extensions that can.
std::string unknownPictureFormat(const std::string& path);

// Draws `paint` on a canvas of `size` and writes it to `path` in the format of its
// extension. Returns "" on success, else the error's description.
std::string writePicture(const std::string& path, QSize size, const PaintFn& paint);

// Asks for a file (extension "png" or "svg" offered; another that can be written is taken
// as typed), asks before replacing one, writes the picture and reports a failure.
// Returns whether a file was written.
bool savePictureAs(aq::Ui& ui, const std::string& folder, const std::string& name, const std::string& extension,
                   QSize size, const PaintFn& paint);

}  // namespace aqapp
