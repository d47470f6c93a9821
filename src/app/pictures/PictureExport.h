#pragma once
// Saving what the map or the genome picture shows as a PNG or SVG file, so users can
// share what they bred.
#include <QSize>
#include <functional>
#include <string>

class QPainter;

namespace aq {
class Ui;
}

namespace aqapp {

using PaintFn = std::function<void(QPainter&)>;

// Draws `paint` on a canvas of `size` and writes it to `path`, as SVG when the path ends
// in ".svg" (any case), else as PNG. Returns "" on success, else the error's description.
std::string writePicture(const std::string& path, QSize size, const PaintFn& paint);

// Asks for a file (extension "png" or "svg"), asks before replacing one, writes the
// picture and reports a failure. Returns whether a file was written.
bool savePictureAs(aq::Ui& ui, const std::string& folder, const std::string& name, const std::string& extension,
                   QSize size, const PaintFn& paint);

}  // namespace aqapp
