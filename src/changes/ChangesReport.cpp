#include "changes/ChangesReport.h"

#include "changes/ChangeColors.h"
#include "changes/ChangesTexts.h"
#include "forms/Paths.h"
#include "model/Numbers.h"
#include "system/SafeFile.h"
#include "system/Sha256.h"

#include <algorithm>
#include <map>
#include <utility>

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPdfWriter>
#include <QTextDocument>

namespace {
constexpr int printedPoints = 9;
constexpr int printedCellPoints = 7;
constexpr std::size_t bytesOfAPrintedRow = 16;
constexpr std::size_t mostPrintedRows = 500; // of what lies elsewhere: more is for programs
constexpr double printedWidth = 481; // points, of A4 between the margins that the toolkit leaves
constexpr double printedMargins = 6; // points, both sides and the line together

/// For the texts of this file.
struct TChangesReport {
    Q_DECLARE_TR_FUNCTIONS(TChangesReport)
};

QString Escaped(const std::string &text) {
    return QString::fromStdString(text).toHtmlEscaped();
}

/// Digits that stand in columns.
QString EvenlySpaced(const std::string &text) {
    return "<tt>" + Escaped(text) + "</tt>";
}

QString EscapedOffset(std::uint32_t offset) {
    return Escaped(FormatOffset(static_cast<std::int32_t>(offset)));
}

QString FromTo(const QString &before, const QString &after) {
    return before + " → " + after;
}

/// "$1A2B 3C → 3D", or both offsets where they are not the same.
QString ByteText(const TByteDifference &byte) {
    const auto hex = [](std::uint8_t one) { return Escaped(HexText({&one, 1}, 1)); };
    const QString there =
        byte.offsetAfter == byte.offsetBefore ? "" : EscapedOffset(byte.offsetAfter) + ' ';
    return FromTo(EscapedOffset(byte.offsetBefore) + ' ' + hex(byte.before),
                  there + hex(byte.after));
}

QString HtmlHeading(const QString &text) {
    return "<h2>" + text + "</h2>";
}

QString HtmlParagraph(const QString &text) {
    return "<p>" + text + "</p>";
}

QString HtmlColor(bool higher) {
    const TColor color = higher ? higherColor : lowerColor; // 0xBBGGRR
    return QString("#%1%2%3")
        .arg(color & 0xFF, 2, 16, QChar('0'))
        .arg(color >> 8 & 0xFF, 2, 16, QChar('0'))
        .arg(color >> 16 & 0xFF, 2, 16, QChar('0'));
}

// ---- tables ------------------------------------------------------------------------------------

struct TPrintedCell {
    QString text{};
    QString color{}; ///< empty for none
    bool head = false;
};

QString PrintedRow(const std::vector<TPrintedCell> &cells, const QString &align) {
    QString row = "<tr>";
    for (const auto &[text, color, head] : cells) {
        const QString tag = head ? "th" : "td";
        const QString fill = color.isEmpty() ? "" : " bgcolor=\"" + color + '"';
        row += '<' + tag + fill + " align=\"" + align + "\">" + text + "</" + tag + '>';
    }
    return row + "</tr>";
}

/// @param rows   the first one has the headers, which are repeated on each page
/// @param align  of all cells; numbers stand right
QString PrintedTable(const std::vector<std::vector<TPrintedCell>> &rows,
                     const QString &align = "right") {
    QString table = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"2\" "
                    "style=\"border-collapse: collapse\"><thead>" +
                    PrintedRow(rows.front(), align) + "</thead>";
    for (std::size_t i = 1; i < rows.size(); ++i)
        table += PrintedRow(rows[i], align);
    return table + "</table>";
}

// ---- maps --------------------------------------------------------------------------------------

/// The cells of a map, changed ones with both values.
class TPrintedMap {
public:
    TPrintedMap(const TMapChanges &changes, const TExported &exported)
        : before_(MapTexts(exported.before, changes.map)),
          after_(MapTexts(exported.after, changes.map)) {
        for (const TCellChange &cell : changes.cells)
            colors_[{cell.rpmPoint + 1, cell.loadPoint + 1}] =
                HtmlColor(cell.byte.after > cell.byte.before);
    }

    /// As many tables side by side as the page is wide, one beneath the other.
    QString Html() const {
        QString html;
        for (int first = 1; first < after_.ColCount();) {
            double width = Width(0);
            int end = first;
            while (end < after_.ColCount() && (end == first || width + Width(end) <= printedWidth))
                width += Width(end++);
            html += PrintedTable(Rows(first, end)) + "<br>";
            first = end;
        }
        return html;
    }

private:
    TPrintedCell Cell(int column, int row) const {
        const QString before = Escaped(before_.Cell(column, row));
        const QString after = Escaped(after_.Cell(column, row));
        const auto color = colors_.find({column, row});
        const bool head = column == 0 || row == 0;
        if (color == colors_.end() && (before == after || !head))
            return {after, {}, head};
        return {FromTo(before, after), color == colors_.end() ? QString() : color->second, head};
    }
    double Width(int column) const {
        QFont font;
        font.setPointSize(printedCellPoints);
        double width = 0;
        for (int row = 0; row < after_.RowCount(); ++row) {
            const TPrintedCell cell = Cell(column, row);
            font.setBold(cell.head);
            const QFontMetricsF metrics(font);
            width = std::max(width, metrics.horizontalAdvance(cell.text) * 72 / metrics.fontDpi());
        }
        return width + printedMargins;
    }
    std::vector<std::vector<TPrintedCell>> Rows(int first, int end) const {
        std::vector<std::vector<TPrintedCell>> rows;
        for (int row = 0; row < after_.RowCount(); ++row) {
            rows.push_back({Cell(0, row)});
            for (int column = first; column < end; ++column)
                rows.back().push_back(Cell(column, row));
        }
        return rows;
    }

    TTextGrid before_;
    TTextGrid after_;
    std::map<std::pair<int, int>, QString> colors_;
};

QString WhyNotCompared(const TMapChanges &changes, const TExported &exported) {
    const auto shape = [&changes](const TMappedImage &image) {
        const TMap &map = MapOf(image.Maps(), changes.map);
        return QString("%1 x %2").arg(map.RPMCount()).arg(map.LoadCount());
    };
    switch (changes.match) {
    case TMatch::OtherShape:
        return TChangesReport::tr("Not compared: %1 points before, %2 after.")
            .arg(shape(exported.before), shape(exported.after));
    case TMatch::OnlyBefore:
        return TChangesReport::tr("Not compared: only the image before has this map.");
    case TMatch::OnlyAfter:
        return TChangesReport::tr("Not compared: only the image after has this map.");
    default:
        return {};
    }
}

QString PrintedMap(const TMapChanges &changes, const TExported &exported) {
    const QString heading = HtmlHeading(Escaped(MapName(changes.map)));
    if (const QString why = WhyNotCompared(changes, exported); !why.isEmpty())
        return heading + HtmlParagraph(why);
    if (!changes.Any())
        return {};
    QStringList axes;
    for (const TByteDifference &byte : changes.axes)
        axes << ByteText(byte);
    const TMap &after = MapOf(exported.after.Maps(), changes.map);
    const TMap &before = MapOf(exported.before.Maps(), changes.map);
    return heading + HtmlParagraph(Escaped(MapText(changes, after, before))) +
           TPrintedMap(changes, exported).Html() +
           (axes.isEmpty() ? QString()
                           : HtmlParagraph(TChangesReport::tr("Axes: %1").arg(axes.join(", "))));
}

// ---- the rest ----------------------------------------------------------------------------------

QString PrintedFiles(const TExported &exported) {
    const auto row = [](const QString &when, const std::string &name, const TMappedImage &image) {
        const QString file = QFileInfo(FromPath(name)).fileName().toHtmlEscaped();
        return std::vector<TPrintedCell>{{when, {}, true},
                                         {file},
                                         {QString::number(image.Bytes().size())},
                                         {EvenlySpaced(Sha256(image.Bytes()))}};
    };
    return PrintedTable({{{},
                          {TChangesReport::tr("File"), {}, true},
                          {TChangesReport::tr("Bytes"), {}, true},
                          {"SHA-256", {}, true}},
                         row(TChangesReport::tr("Before"), exported.nameBefore, exported.before),
                         row(TChangesReport::tr("After"), exported.nameAfter, exported.after)},
                        "left");
}

QString PrintedSummary(const TImageChanges &changes) {
    QString text =
        TChangesReport::tr("Differing: %1.").arg(Escaped(BytesText(BytesOf(changes.runs))));
    if (changes.sizeBefore != changes.sizeAfter)
        text += ' ' + TChangesReport::tr("The end of the longer image is left out.");
    const auto sample = [](const QString &words, bool higher) {
        return "<span style=\"background-color: " + HtmlColor(higher) + "\">&nbsp;" + words +
               "&nbsp;</span>";
    };
    return HtmlParagraph(text) +
           HtmlParagraph(TChangesReport::tr("Values: before → after") + " &nbsp; " +
                         sample(TChangesReport::tr("higher"), true) + " &nbsp; " +
                         sample(TChangesReport::tr("lower"), false));
}

QString PrintedRevLimiter(const TByteDifference &limiter) {
    const auto speed = [](std::uint8_t byte) {
        TRPMVal value;
        value.raw = byte;
        return Escaped(FormatReal("####0", value.GetConverted()));
    };
    return HtmlHeading(TChangesReport::tr("Max RPM")) +
           PrintedTable({{{FromTo(speed(limiter.before), speed(limiter.after)),
                           HtmlColor(limiter.after > limiter.before)}}}) +
           HtmlParagraph(ByteText(limiter));
}

QString PrintedElsewhere(const std::vector<TByteRun> &runs, const TExported &exported) {
    std::vector<std::vector<TPrintedCell>> rows{{{TChangesReport::tr("Offset"), {}, true},
                                                 {TChangesReport::tr("Before"), {}, true},
                                                 {TChangesReport::tr("After"), {}, true}}};
    std::size_t left = BytesOf(runs);
    for (const auto &[offset, length] : runs)
        for (std::size_t i = 0; i < length && rows.size() <= mostPrintedRows;
             i += bytesOfAPrintedRow) {
            const std::size_t count = std::min(bytesOfAPrintedRow, length - i);
            const auto bytes = [&, first = offset + i](const TMappedImage &image) {
                return EvenlySpaced(HexText(image.Bytes().subspan(first, count), count));
            };
            rows.push_back({{EscapedOffset(static_cast<std::uint32_t>(offset + i))},
                            {bytes(exported.before)},
                            {bytes(exported.after)}});
            left -= count;
        }
    return HtmlHeading(TChangesReport::tr("Elsewhere")) +
           HtmlParagraph(Escaped(ElsewhereText(runs))) + PrintedTable(rows, "left") +
           (left == 0
                ? QString()
                : HtmlParagraph(
                      TChangesReport::tr("Not printed: %1 more.").arg(Escaped(BytesText(left)))));
}

QString PrintedHtml(const TExported &exported) {
    const TImageChanges changes = ImageChanges(exported.before, exported.after);
    QString html = "<h1>" + TChangesReport::tr("Differences of two images") + "</h1>" +
                   PrintedFiles(exported) + PrintedSummary(changes);
    for (const TMapChanges &map : changes.maps)
        html += PrintedMap(map, exported);
    if (changes.revLimiter)
        html += PrintedRevLimiter(*changes.revLimiter);
    if (!changes.elsewhere.empty())
        html += PrintedElsewhere(changes.elsewhere, exported);
    return html;
}

QByteArray PdfOf(const QString &html) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QPdfWriter pages(&file);
    pages.setPageSize(QPageSize(QPageSize::A4));
    pages.setPageMargins({});
    pages.setTitle(TChangesReport::tr("Differences of two images"));
    QTextDocument text;
    QFont font;
    font.setPointSize(printedPoints);
    font.setLetterSpacing(QFont::PercentageSpacing, 100.01); // no ligatures: digests are copied
    text.setDefaultFont(font);
    text.setDefaultStyleSheet(QString("h1{font-size:14pt}h2{font-size:11pt}th,td{font-size:%1pt}")
                                  .arg(printedCellPoints));
    text.setHtml(html);
    text.print(&pages); // with a number on each page
    return file.data();
}
} // namespace

void WriteReport(const std::filesystem::path &target, const TExported &exported) {
    const QByteArray pdf = PdfOf(PrintedHtml(exported));
    WriteFileSafely(target, {reinterpret_cast<const std::uint8_t *>(pdf.data()),
                             static_cast<std::size_t>(pdf.size())});
}
