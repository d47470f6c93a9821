#include "app/pictures/PictureExport.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <filesystem>

#include "base/FileIo.h"
#include "base/Ui.h"

namespace aqapp {

namespace {

bool endsWithSvg(const std::string& path) {
    if (path.size() < 4) return false;
    std::string tail = path.substr(path.size() - 4);
    for (char& c : tail) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return tail == ".svg";
}

}  // namespace

std::string writePicture(const std::string& path, QSize size, const PaintFn& paint) {
    if (size.width() < 1 || size.height() < 1 || size.width() > 8000 || size.height() > 8000)
        return "a picture must be 1 to 8000 pixels each way";
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (endsWithSvg(path)) {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(size);
        svg.setResolution(96);  // a CSS pixel, so viewers show it at the size asked for
        svg.setViewBox(QRect(QPoint(0, 0), size));
        svg.setTitle("Aquarium File Manager");
        QPainter painter;
        if (!painter.begin(&svg)) return "the SVG picture could not be drawn";
        paint(painter);
        painter.end();
    } else {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        if (image.isNull()) return "not enough memory for the picture";
        QPainter painter(&image);
        paint(painter);
        painter.end();
        if (!image.save(&buffer, "PNG")) return "the PNG picture could not be encoded";
    }
    buffer.close();
    return aq::writeFileAtomically(path, std::string_view(bytes.constData(), std::size_t(bytes.size())));
}

bool savePictureAs(aq::Ui& ui, const std::string& folder, const std::string& name, const std::string& extension,
                   QSize size, const PaintFn& paint) {
    const std::string title = "Aquarium File Manager - Save Picture";
    std::string description = extension == "svg" ? "SVG pictures" : "PNG pictures";
    std::string path = ui.ChooseSaveFile(folder, name, extension, description, title);
    if (path.empty()) return false;
    // A name typed without an extension gets the one of the format asked for.
    if (std::filesystem::path(path).extension().empty()) path += "." + extension;
    std::error_code ec;
    if (std::filesystem::exists(path, ec) &&
        ui.AskYesNo(path + " already exists.  Overwrite existing file?", "Filename Conflict") != aq::Answer::Yes)
        return false;
    std::string error = writePicture(path, size, paint);
    if (error.empty()) return true;
    ui.ShowMessage("Error saving " + path + ", error: " + error, title);
    return false;
}

}  // namespace aqapp
