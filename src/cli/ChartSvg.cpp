#include "cli/ChartSvg.h"

#include "maps/ChartDrawing.h"
#include "model/Numbers.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {
constexpr double fontSize = 12;         // pixels
constexpr double lineHeight = 14;       // pixels
constexpr double baseline = 4.4;        // below the middle of a line of that font
constexpr const char *hairline = "0.5"; // around faces, which would leave gaps between them
/// Faces keep their exact colours up to their edges, as in the window.
constexpr const char *exactFaces = "<style>polygon{shape-rendering:crispEdges}</style>\n";

/// Of the widths of DejaVu Sans, in parts of its size.
double CharacterWidth(char c) {
    if (std::string_view("%@mwMW").find(c) != std::string_view::npos)
        return 0.95;
    if (std::string_view(" .,:;'|!/\\-()[]ijlI").find(c) != std::string_view::npos)
        return 0.34;
    const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80; // of a UTF-8 character
    return continues ? 0 : 0.636;
}

class TEstimatedSizes : public ITextSizes {
public:
    double LineHeight() const override { return lineHeight; }
    double Width(const std::string &text) const override {
        double width = 0;
        for (const char c : text)
            width += CharacterWidth(c);
        return width * fontSize;
    }
    double TitleHeight() const override { return lineHeight; }
    double TitleWidth(const std::string &text) const override { return boldness * Width(text); }
    std::string ShortenedTitle(const std::string &text, double width) const override {
        if (TitleWidth(text) <= width)
            return text;
        std::string shortened = text; // the program's own titles are ASCII
        while (!shortened.empty() && TitleWidth(shortened + dots) > width)
            shortened.pop_back();
        return shortened + dots;
    }

private:
    static constexpr double boldness = 1.1;
    static constexpr const char *dots = "...";
};

std::string Number(double value) {
    return FormatReal("0.00", value);
}

std::string Point(const TScreenPoint &point) {
    return Number(point.x) + "," + Number(point.y);
}

std::string ColorName(const TRgb &color) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string name = "#";
    for (const int part : {color.red, color.green, color.blue}) {
        const auto byte = static_cast<std::size_t>(part);
        name += {digits[byte / 16], digits[byte % 16]};
    }
    return name;
}

std::string Attribute(const char *name, const std::string &value) {
    return std::string(" ") + name + "=\"" + value + "\"";
}

std::string RectAttributes(const TChartRect &rect) {
    return Attribute("x", Number(rect.left)) + Attribute("y", Number(rect.top)) +
           Attribute("width", Number(rect.width)) + Attribute("height", Number(rect.height));
}

std::string Escaped(const std::string &text) {
    std::string escaped;
    for (const char c : text)
        escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : std::string(1, c);
    return escaped;
}

class TSvgCanvas : public IChartCanvas {
public:
    TRgb Background() const override { return rgbWhite; }
    TRgb Text() const override { return rgbBlack; }
    TRgb Painted(TColor color) const override {
        if (color >> 24 == 0x80) // of a theme, which a file has none of
            return Text();
        const auto channel = [color](int shift) { return static_cast<int>(color >> shift & 0xFF); };
        return {channel(0), channel(8), channel(16)};
    }

    void DrawLines(std::span<const TChartLine> lines, const TRgb &color) override {
        std::string path;
        for (const TChartLine &line : lines)
            path += "M" + Point(line.from) + "L" + Point(line.to);
        text_ += "<path" + Attribute("d", path) + Attribute("stroke", ColorName(color)) + "/>\n";
    }
    void DrawFace(std::span<const TScreenPoint> corners, const TRgb &color) override {
        std::string points;
        for (const TScreenPoint &corner : corners)
            points += (points.empty() ? "" : " ") + Point(corner);
        text_ += "<polygon" + Attribute("points", points) + Attribute("fill", ColorName(color)) +
                 Attribute("stroke", ColorName(color)) + Attribute("stroke-width", hairline) +
                 "/>\n";
    }
    void DrawRidges(std::span<const TChartLine> lines, const TRgb &color) override {
        DrawLines(lines, color);
    }

    const std::string &Drawn() const { return text_; }

private:
    std::string text_;
};

std::string LabelText(const TChartLabel &label) {
    const TScreenPoint middle = label.rect.Centre();
    std::string attributes;
    if (label.upright)
        attributes = Attribute("transform", "translate(" + Point(middle) + ") rotate(-90)") +
                     Attribute("y", Number(baseline));
    else
        attributes = Attribute("x", Number(middle.x)) + Attribute("y", Number(middle.y + baseline));
    if (label.kind == TLabelKind::Title)
        attributes += Attribute("font-weight", "bold");
    return "<text" + attributes + ">" + Escaped(label.text) + "</text>\n";
}

std::string Head(const TChartContents &contents, const TChartRect &place) {
    const std::string width = Number(place.width);
    const std::string height = Number(place.height);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", width) +
           Attribute("height", height) + Attribute("viewBox", "0 0 " + width + " " + height) +
           Attribute("role", "img") + ">\n<title>" + Escaped(contents.title) + "</title>\n" +
           exactFaces + "<rect" + RectAttributes(place) + Attribute("fill", ColorName(rgbWhite)) +
           "/>\n";
}
} // namespace

std::string ChartSvg(const TChartContents &contents, int width, int height) {
    const TChartRect place{0, 0, static_cast<double>(width), static_cast<double>(height)};
    const TChartLayout layout = LayOut(contents, place, TEstimatedSizes());
    TSvgCanvas canvas;
    DrawChart(contents, layout, canvas);
    std::string labels;
    for (const TChartLabel &label : layout.labels)
        labels += LabelText(label);
    // In no view does the box leave its place: nothing is to be cut off.
    return Head(contents, place) + "<g" +
           Attribute("stroke-width", Number(layout.lineHeight * chartLineWidth)) + ">\n" +
           canvas.Drawn() + "</g>\n<g" + Attribute("font-family", "DejaVu Sans, sans-serif") +
           Attribute("font-size", Number(fontSize)) + Attribute("text-anchor", "middle") +
           Attribute("fill", ColorName(rgbBlack)) + ">\n" + labels + "</g>\n</svg>\n";
}
