#include "app/pictures/PictureExport.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSvgGenerator>
#include <algorithm>
#include <filesystem>
#include <vector>

#include "base/FileIo.h"
#include "base/Ui.h"

namespace aqapp {

namespace {

std::string lower(std::string s) {
    for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string extensionOf(const std::string& path) {
    std::string ext = std::filesystem::path(path).extension().string();
    return ext.empty() ? ext : lower(ext.substr(1));
}

// SVG and whatever image writers this Qt has; the plugins can differ between machines.
const std::vector<std::string>& writableFormats() {
    static const std::vector<std::string> formats = [] {
        std::vector<std::string> f{"svg"};
        for (const QByteArray& name : QImageWriter::supportedImageFormats()) f.push_back(lower(name.toStdString()));
        std::sort(f.begin(), f.end());
        f.erase(std::unique(f.begin(), f.end()), f.end());
        return f;
    }();
    return formats;
}

}  // namespace

std::string pictureFormat(const std::string& path) {
    std::string ext = extensionOf(path);
    const auto& formats = writableFormats();
    return std::find(formats.begin(), formats.end(), ext) != formats.end() ? ext : std::string();
}

std::string pictureExtensions() {
    std::string known;
    for (const std::string& f : writableFormats()) known += (known.empty() ? "." : ", .") + f;
    return known;
}

std::string unknownPictureFormat(const std::string& path) {
    return "cannot tell a picture format from the name \"" + std::filesystem::path(path).filename().string() +
           "\"; it must end in one of " + pictureExtensions();
}

std::string writePicture(const std::string& path, QSize size, const PaintFn& paint) {
    const std::string format = pictureFormat(path);
    if (format.empty()) return unknownPictureFormat(path);
    if (size.width() < 1 || size.height() < 1 || size.width() > 8000 || size.height() > 8000)
        return "a picture must be 1 to 8000 pixels each way";
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (format == "svg") {
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
        // Both pictures paint every pixel, so no format needs an alpha channel.
        QImage image(size, QImage::Format_RGB32);
        if (image.isNull()) return "not enough memory for the picture";
        QPainter painter(&image);
        paint(painter);
        painter.end();
        if (!image.save(&buffer, format.c_str()))
            return "the " + QString::fromStdString(format).toUpper().toStdString() + " picture could not be encoded";
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
    // A name typed without an extension gets the one of the format asked for; one typed
    // with another extension is written in that format, or refused.
    if (std::filesystem::path(path).extension().empty()) path += "." + extension;
    if (pictureFormat(path).empty()) {
        ui.ShowMessage("Error saving " + path + ", error: " + unknownPictureFormat(path), title);
        return false;
    }
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
