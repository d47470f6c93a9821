#include "app/pictures/GenomePicture.h"

#include <QImage>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "app/widgets/PointTips.h"
#include "format/Records.h"

namespace aqapp {

namespace {

constexpr int kGenes = aq::kGeneCount;
constexpr int kMargin = 4;
constexpr int kDiffHeight = 8;
constexpr int kLeastStrip = 2;  // pixels a strip keeps before the picture scrolls
constexpr int kMostStrip = 64;
const QColor kDiffer(215, 25, 28);

// Viridis, from its usual polynomial fit: even steps in value look like even steps in colour.
std::array<QRgb, 256> makeScale() {
    static const double c[7][3] = {{0.2777273272234177, 0.005407344544966578, 0.3340998053353061},
                                   {0.1050930431085774, 1.404613529898575, 1.384590162594685},
                                   {-0.3308618287255563, 0.214847559468213, 0.09509516302823659},
                                   {-4.634230498983486, -5.799100973351585, -19.33244095627987},
                                   {6.228269936347081, 14.17993336680509, 56.69055260068105},
                                   {4.776384997670288, -13.74514537774601, -65.35303263337234},
                                   {-5.435455855934631, 4.645852612178535, 26.3124352495832}};
    std::array<QRgb, 256> scale{};
    for (int v = 0; v < 256; ++v) {
        double t = v / 255.0;
        int rgb[3];
        for (int k = 0; k < 3; ++k) {
            double x = c[6][k];
            for (int d = 5; d >= 0; --d) x = x * t + c[d][k];
            rgb[k] = std::clamp(static_cast<int>(std::lround(x * 255)), 0, 255);
        }
        scale[std::size_t(v)] = qRgb(rgb[0], rgb[1], rgb[2]);
    }
    return scale;
}

const std::array<QRgb, 256>& colorScale() {
    static const std::array<QRgb, 256> scale = makeScale();
    return scale;
}

}  // namespace

GenomePicture::GenomePicture(QWidget* parent) : QWidget(parent), scroll_(new QScrollBar(Qt::Vertical, this)) {
    setObjectName("GenomePicture");
    setMinimumSize(160, 120);
    scroll_->setObjectName("scrollGenomePicture");
    scroll_->hide();
    connect(scroll_, &QScrollBar::valueChanged, this, [this] { update(); });
}

QRgb GenomePicture::valueColor(int value) { return colorScale()[std::size_t(std::clamp(value, 0, 255))]; }

std::vector<std::uint8_t> GenomePicture::differingGenes(const std::vector<GenomeStrip>& strips) {
    std::vector<std::uint8_t> differ(kGenes, 0);
    if (strips.size() < 2) return differ;
    const std::uint8_t* first = strips[0].genes;
    for (std::size_t s = 1; s < strips.size(); ++s) {
        const std::uint8_t* g = strips[s].genes;
        for (int k = 0; k < kGenes; ++k) differ[std::size_t(k)] |= g[k] != first[k];
    }
    return differ;
}

GenomePicture::Layout GenomePicture::layoutFor(QSize size, int count, bool all) const {
    Layout l;
    int line = fontMetrics().height();
    int right = size.width() - kMargin - (!all && !scroll_->isHidden() ? scroll_->sizeHint().width() : 0);
    l.diffRow = QRect(QPoint(kMargin, kMargin), QPoint(right - 1, kMargin + kDiffHeight - 1));
    int stripsTop = l.diffRow.bottom() + 3;
    // Under the strips: the gene numbers, then the legend.
    int stripsBottom = size.height() - kMargin - 2 * line - 6;
    l.strips = QRect(QPoint(kMargin, stripsTop), QPoint(right - 1, std::max(stripsTop, stripsBottom)));
    l.legend = QRect(kMargin, l.strips.bottom() + 2, right - kMargin, size.height() - l.strips.bottom() - 2);
    int height = l.strips.height();
    if (count <= 0) return l;
    if (all) {
        l.stripHeight = std::min<double>(kMostStrip, double(height) / count);
        l.shown = count;
        return l;
    }
    l.stripHeight = std::clamp(height / count, kLeastStrip, kMostStrip);
    l.shown = std::min(count, std::max(1, height / int(l.stripHeight)));
    l.first = std::clamp(firstStrip(), 0, count - l.shown);
    return l;
}

int GenomePicture::firstStrip() const { return scroll_->isHidden() ? 0 : scroll_->value(); }

void GenomePicture::refresh() {
    int count = source_ ? static_cast<int>(source_().size()) : 0;
    int fits = std::max(1, layoutFor(size(), 0, true).strips.height() / kLeastStrip);
    bool scrolls = count > fits;
    scroll_->setVisible(scrolls);
    if (scrolls) {
        int w = scroll_->sizeHint().width();
        scroll_->setGeometry(width() - w, 0, w, this->height());
        scroll_->setRange(0, count - fits);
        scroll_->setPageStep(fits);
        scroll_->setSingleStep(3);
    }
    update();
}

void GenomePicture::paintPicture(QPainter& painter, QSize size, bool all) const {
    paintPicture(painter, size, all, PictureColors::of(palette()));
}

void GenomePicture::paintPicture(QPainter& painter, QSize size, bool all, const PictureColors& colors) const {
    painter.fillRect(QRect(QPoint(0, 0), size), colors.background);
    std::vector<GenomeStrip> strips = source_ ? source_() : std::vector<GenomeStrip>{};
    const int count = static_cast<int>(strips.size());
    if (count == 0) {
        painter.setPen(colors.hint);
        painter.drawText(QRect(QPoint(0, 0), size), Qt::AlignCenter | Qt::TextWordWrap, hint_);
        return;
    }
    const Layout l = layoutFor(size, count, all);
    const QRect area = l.strips;
    if (area.width() <= 0 || area.height() <= 0) return;

    // The genes each pixel column covers: every gene has a column or shares one.
    const int w = area.width();
    std::vector<int> firstGene(std::size_t(w) + 1);
    for (int x = 0; x <= w; ++x) firstGene[std::size_t(x)] = std::min(kGenes, x * kGenes / w);

    // The strips, built straight into an image of the area's pixels.
    const auto& scale = colorScale();
    const int usedHeight = std::min(area.height(), static_cast<int>(std::ceil(l.shown * l.stripHeight)));
    QImage image(w, std::max(1, usedHeight), QImage::Format_RGB32);
    image.fill(colors.background);
    const bool gaps = l.stripHeight >= 6;
    int lastStrip = -1;
    for (int y = 0; y < usedHeight; ++y) {
        int s = l.first + static_cast<int>(y / l.stripHeight);
        if (s >= count) break;
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        bool gapLine = gaps && static_cast<int>((y + 1) / l.stripHeight) != static_cast<int>(y / l.stripHeight);
        if (gapLine) continue;
        if (s == lastStrip) {
            std::memcpy(line, image.constScanLine(y - 1), std::size_t(w) * sizeof(QRgb));
            continue;
        }
        const std::uint8_t* g = strips[std::size_t(s)].genes;
        for (int x = 0; x < w; ++x) {
            int k = firstGene[std::size_t(x)];
            line[x] = scale[g[k < kGenes ? k : kGenes - 1]];
        }
        lastStrip = s;
    }
    painter.drawImage(area.topLeft(), image);

    // The row of differing genes: a column is marked when any gene it covers differs.
    std::vector<std::uint8_t> differ = differingGenes(strips);
    painter.fillRect(l.diffRow, colors.band);
    std::vector<char> marked(std::size_t(w), 0);
    for (int x = 0; x < w; ++x) {
        int from = firstGene[std::size_t(x)], to = std::max(from + 1, firstGene[std::size_t(x) + 1]);
        for (int k = from; k < to && k < kGenes; ++k) marked[std::size_t(x)] |= differ[std::size_t(k)];
    }
    for (int x = 0; x < w;) {
        if (!marked[std::size_t(x)]) {
            ++x;
            continue;
        }
        int from = x;
        while (x < w && marked[std::size_t(x)]) ++x;
        painter.fillRect(QRect(l.diffRow.left() + from, l.diffRow.top(), x - from, l.diffRow.height()), kDiffer);
    }

    // Names over the strips that are tall enough to carry them.
    QFontMetrics fm = painter.fontMetrics();
    if (l.stripHeight >= fm.height() + 2) {
        for (int i = 0; i < l.shown && l.first + i < count; ++i) {
            const QString& name = strips[std::size_t(l.first + i)].name;
            QRect box(area.left() + 2, area.top() + static_cast<int>(i * l.stripHeight) + 1,
                      std::min(fm.horizontalAdvance(name) + 6, area.width() - 4), fm.height());
            QColor backdrop = colors.backdrop;
            backdrop.setAlpha(190);
            painter.fillRect(box, backdrop);
            painter.setPen(colors.ink);
            painter.drawText(box.adjusted(3, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, name);
        }
    }

    // The chosen gene, outlined from the differing row down through every strip.
    int chosen = chosen_ ? chosen_() : -1;
    if (chosen >= 0 && chosen < kGenes) {
        double left = area.left() + double(chosen) * w / kGenes, right = area.left() + double(chosen + 1) * w / kGenes;
        double mid = (left + right) / 2, half = std::max(1.5, (right - left) / 2);
        QRectF box(mid - half - 1, l.diffRow.top() - 1, 2 * half + 2, area.top() + usedHeight - l.diffRow.top() + 2);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colors.ink, 1));
        painter.drawRect(box);
        painter.setPen(QPen(colors.backdrop, 1));
        painter.drawRect(box.adjusted(-1, -1, 1, 1));
    }

    // Gene numbers under the strips, then the legend.
    painter.setPen(colors.text);
    int numbersTop = area.top() + usedHeight + 2;
    for (int gene : {0, 250, 500, 750, 999}) {
        int x = area.left() + gene * w / kGenes;
        QString text = QString::number(gene);
        int tw = fm.horizontalAdvance(text);
        int left = std::clamp(x - tw / 2, area.left(), area.right() - tw);
        painter.drawLine(x, numbersTop, x, numbersTop + 2);
        painter.drawText(QPoint(left, numbersTop + 2 + fm.ascent()), text);
    }
    int legendTop = numbersTop + fm.height() + 4;
    QRect bar(area.left() + fm.horizontalAdvance("0") + 4, legendTop, std::min(160, w / 3), fm.height() - 2);
    painter.drawText(QPoint(area.left(), legendTop + fm.ascent() - 1), "0");
    QLinearGradient gradient(bar.topLeft(), bar.topRight());
    for (int v = 0; v <= 255; v += 15) gradient.setColorAt(v / 255.0, QColor(scale[std::size_t(v)]));
    painter.fillRect(bar, gradient);
    int x = bar.right() + 4;
    painter.drawText(QPoint(x, legendTop + fm.ascent() - 1), "255 gene value");
    x += fm.horizontalAdvance("255 gene value") + 16;
    if (x + 120 < area.right()) {
        painter.fillRect(QRect(x, bar.top(), 12, bar.height()), kDiffer);
        painter.drawText(QPoint(x + 16, legendTop + fm.ascent() - 1), "genes that differ");
    }
}

void GenomePicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintPicture(painter, size(), false);
}

void GenomePicture::resizeEvent(QResizeEvent*) { refresh(); }

int GenomePicture::geneAt(QPoint p) const {
    Layout l = layoutFor(size(), 1, false);
    if (l.strips.width() <= 0 || p.x() < l.strips.left() || p.x() > l.strips.right() || p.y() < l.diffRow.top() ||
        p.y() > l.strips.bottom())
        return -1;
    return std::clamp((p.x() - l.strips.left()) * kGenes / l.strips.width(), 0, kGenes - 1);
}

int GenomePicture::stripAt(QPoint p) const {
    int count = source_ ? static_cast<int>(source_().size()) : 0;
    Layout l = layoutFor(size(), count, false);
    if (count == 0 || geneAt(p) < 0 || p.y() < l.strips.top()) return -1;
    int s = l.first + static_cast<int>((p.y() - l.strips.top()) / l.stripHeight);
    return s < l.first + l.shown && s < count ? s : -1;
}

QString GenomePicture::tipAt(QPoint p) const {
    int gene = geneAt(p), strip = stripAt(p);
    if (gene < 0 || strip < 0) return {};
    std::vector<GenomeStrip> strips = source_();
    return QString("%1\nGene %2: %3")
        .arg(strips[std::size_t(strip)].name)
        .arg(gene)
        .arg(strips[std::size_t(strip)].genes[gene]);
}

void GenomePicture::mousePressEvent(QMouseEvent* e) {
    if (e->button() != Qt::LeftButton) return;
    int gene = geneAt(e->pos());
    if (gene >= 0) emit geneClicked(stripAt(e->pos()), gene);
}

void GenomePicture::wheelEvent(QWheelEvent* e) {
    if (scroll_->isHidden()) return;
    scroll_->setValue(scroll_->value() - e->angleDelta().y() / 40);
}

bool GenomePicture::event(QEvent* e) {
    return showPointTip(this, e, [this](QPoint p) { return tipAt(p); }) || QWidget::event(e);
}

}  // namespace aqapp
