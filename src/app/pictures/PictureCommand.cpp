#include "app/pictures/PictureCommand.h"

#include <QApplication>
#include <filesystem>
#include <iostream>

#include "app/pictures/GenomePicture.h"
#include "app/pictures/PictureExport.h"
#include "app/pictures/PoolMap.h"
#include "app/pictures/SeriesDrawing.h"
#include "format/PoolFile.h"

namespace aqapp {

namespace {

const char* const kUsage =
    "usage: AqFileManager --picture map|genes POOL OUT [--size WxH]\n"
    "       AqFileManager --picture series FIRST OUT [--size WxH] [--plain]";

struct Usage {
    std::string text;
};

// "1200x900": both sides whole numbers from 16 to 8000.
QSize parseSize(const std::string& text) {
    auto x = text.find_first_of("xX");
    auto side = [&](const std::string& part) {
        if (part.empty() || part.size() > 5 || part.find_first_not_of("0123456789") != std::string::npos) return -1;
        return std::stoi(part);
    };
    int w = x == std::string::npos ? -1 : side(text.substr(0, x));
    int h = x == std::string::npos ? -1 : side(text.substr(x + 1));
    if (w < 16 || h < 16 || w > 8000 || h > 8000)
        throw Usage{"option --size needs WIDTHxHEIGHT, each 16 to 8000 pixels, got \"" + text + "\""};
    return {w, h};
}

// Every file of the series read here and now, with its species.
int seriesPicture(const std::string& first, bool branching, const std::string& out, QSize size, std::string& message) {
    std::error_code ec;
    const std::string file = std::filesystem::absolute(first, ec).string();
    SeriesScene scene;
    scene.setMembers(aq::listSeries(file, branching));
    aq::Pool scratch;
    if (scene.members.empty()) {
        std::string error = aq::poolReadMessage(file, aq::readPool(file, scratch));
        message = "AqFileManager: " + (error.empty() ? file + " is not a series' first file" : error) + "\n";
        return 1;
    }
    for (std::size_t i = 0; i < scene.members.size(); ++i)
        scene.figures[i] = aq::readPoolFigures(scene.members[i].path, aq::SpeciesRule{44.4f, 100}, scratch);
    std::string error =
        writePicture(out, size, [&](QPainter& p) { paintSeries(p, size, scene, PictureColors::light()); });
    if (!error.empty()) {
        message = "AqFileManager: Error saving " + out + ", error: " + error + "\n";
        return 1;
    }
    return 0;
}

}  // namespace

int pictureCommand(const std::vector<std::string>& args, std::string& message) {
    std::vector<std::string> positional;
    QSize size(1200, 900);
    bool plain = false;
    try {
        bool options = true;
        for (std::size_t i = 0; i < args.size(); ++i) {
            const std::string& a = args[i];
            if (options && (a == "--help" || a == "-h")) {
                message = std::string(kUsage) +
                          "\n\nWrites the pool map (map), every drifter's genes, one strip each (genes), or the "
                          "tree of a series' pools from its first file with a chart of its first row (series; "
                          "--plain for a series that does not branch, species at 44.4% and depth 100) as a "
                          "picture in the format of OUT's extension: " +
                          pictureExtensions() + ".\n";
                return 0;
            }
            if (options && a == "--") {
                options = false;
            } else if (options && a == "--size") {
                if (i + 1 >= args.size()) throw Usage{"option --size needs a value"};
                size = parseSize(args[++i]);
            } else if (options && a.rfind("--size=", 0) == 0) {
                size = parseSize(a.substr(7));
            } else if (options && a == "--plain") {
                plain = true;
            } else if (options && a.size() > 1 && a[0] == '-') {
                throw Usage{"unknown option " + a};
            } else {
                positional.push_back(a);
            }
        }
        if (positional.size() != 3) throw Usage{"expected 3 arguments, got " + std::to_string(positional.size())};
        if (positional[0] != "map" && positional[0] != "genes" && positional[0] != "series")
            throw Usage{"the picture is map, genes or series, got \"" + positional[0] + "\""};
        if (plain && positional[0] != "series") throw Usage{"option --plain is for series pictures"};
        if (pictureFormat(positional[2]).empty()) throw Usage{unknownPictureFormat(positional[2])};
    } catch (const Usage& u) {
        message = "AqFileManager --picture: " + u.text + "\n" + kUsage + "\n";
        return 2;
    }
    const std::string &kind = positional[0], &poolPath = positional[1], &out = positional[2];
    if (kind == "series") return seriesPicture(poolPath, !plain, out, size, message);
    aq::Pool pool;
    if (std::string error = aq::poolReadMessage(poolPath, aq::readPool(poolPath, pool)); !error.empty()) {
        message = "AqFileManager: " + error + "\n";
        return 1;
    }
    std::string error;
    if (kind == "map") {
        PoolMap map;
        map.resize(size);
        map.setPool(&pool);
        error = writePicture(out, size, [&](QPainter& p) { map.paintPool(p, PictureColors::light()); });
    } else {
        GenomePicture picture;
        picture.resize(size);
        picture.setEmptyHint("This pool has no drifters");
        picture.setSource([&pool] {
            std::vector<GenomeStrip> strips;
            int n = std::clamp<int>(pool.drifterCount, 0, static_cast<int>(pool.drifters.size()));
            for (int i = 0; i < n; ++i)
                strips.push_back({QString("Drifter %1").arg(i), pool.drifters[std::size_t(i)].genes, i});
            return strips;
        });
        error =
            writePicture(out, size, [&](QPainter& p) { picture.paintPicture(p, size, true, PictureColors::light()); });
    }
    if (!error.empty()) {
        message = "AqFileManager: Error saving " + out + ", error: " + error + "\n";
        return 1;
    }
    return 0;
}

std::optional<int> runPictureCommand(int argc, char** argv) {
    if (argc < 2 || std::string(argv[1]) != "--picture") return std::nullopt;
    // No window is shown, so no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Scripts read stderr for our messages; the platform's remarks about its runtime
    // folder are not theirs.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type != QtDebugMsg && type != QtInfoMsg && !text.startsWith("QStandardPaths:"))
            std::cerr << text.toStdString() << "\n";
    });
    QApplication app(argc, argv);
    std::string message;
    int status = pictureCommand(std::vector<std::string>(argv + 2, argv + argc), message);
    (status == 0 ? std::cout : std::cerr) << message;
    return status;
}

}  // namespace aqapp
