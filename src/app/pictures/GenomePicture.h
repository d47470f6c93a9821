#pragma once
// A picture of genomes: a strip per genome with its 1000 genes left to right, each
// gene's value a colour. A row above the strips marks the genes in which they
// differ, the chosen gene is outlined, a click picks a gene and hovering tells the
// strip, the gene and its value. Beyond a few hundred strips it scrolls.
#include <QWidget>
#include <cstdint>
#include <functional>
#include <vector>

#include "app/pictures/PictureColors.h"

class QScrollBar;

namespace aqapp {

struct GenomeStrip {
    QString name;
    const std::uint8_t* genes;  // 1000 of them
    int record;                 // the list row it stands for
};

class GenomePicture : public QWidget {
    Q_OBJECT
public:
    explicit GenomePicture(QWidget* parent = nullptr);

    // Asked at every drawing and hover for the strips; the pointers need last only that long.
    void setSource(std::function<std::vector<GenomeStrip>()> source) { source_ = std::move(source); }
    // The gene to outline, -1 for none.
    void setChosenGene(std::function<int()> chosen) { chosen_ = std::move(chosen); }
    // What the picture says when it has no strips.
    void setEmptyHint(const QString& hint) { hint_ = hint; }
    // Brings the scrollbar in step with the strips and redraws.
    void refresh();

    // Draws on any painter: the strips from the scrollbar's on (`all`: every strip,
    // squeezed to fit, for export), in the widget's palette or in the colours given.
    void paintPicture(QPainter& painter, QSize size, bool all) const;
    void paintPicture(QPainter& painter, QSize size, bool all, const PictureColors& colors) const;
    int geneAt(QPoint p) const;   // -1 outside the genes
    int stripAt(QPoint p) const;  // -1 outside the strips
    QString tipAt(QPoint p) const;

    // 1 where some strip's gene differs from the first strip's.
    static std::vector<std::uint8_t> differingGenes(const std::vector<GenomeStrip>& strips);
    // The colour of a gene's value: a perceptually even scale from dark violet to yellow.
    static QRgb valueColor(int value);

signals:
    void geneClicked(int strip, int gene);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void mousePressEvent(QMouseEvent* e) override;
    void wheelEvent(QWheelEvent* e) override;
    bool event(QEvent* e) override;

private:
    struct Layout {
        QRect diffRow, strips, legend;
        double stripHeight = 0;
        int first = 0, shown = 0;
    };
    Layout layoutFor(QSize size, int count, bool all) const;
    int firstStrip() const;
    std::function<std::vector<GenomeStrip>()> source_;
    std::function<int()> chosen_;
    QString hint_;
    QScrollBar* scroll_;
};

}  // namespace aqapp
