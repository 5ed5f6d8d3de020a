#include "platform/chart_model.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <charconv>
#include <cmath>
#include <utility>

namespace vorna {
namespace {

constexpr std::size_t maxTextBytes = 512;
constexpr std::size_t maxCategories = 400;
constexpr std::size_t maxSlices = 100;
constexpr std::size_t maxSeries = 16;
constexpr std::size_t maxTrendLines = 32;
constexpr std::size_t maxStyles = 32;
constexpr double maxNumber = 1e9;
constexpr ChartColour lineColour{0x33, 0x33, 0x33};

bool isBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isQuote(char c) {
    return c == '\'' || c == '"';
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool equalName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return lower(x) == lower(y); });
}

std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// The text, cut between two characters where it is too long.
std::string boundedText(std::string_view text) {
    if (text.size() <= maxTextBytes)
        return std::string(text);
    std::size_t end = maxTextBytes;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return std::string(text.substr(0, end));
}

std::optional<double> parseNumber(std::string_view text) {
    text = withoutBlanks(text);
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return std::clamp(number, -maxNumber, maxNumber);
}

std::optional<int> parseInteger(std::string_view text, int lowest, int highest) {
    text = withoutBlanks(text);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return std::clamp(number, lowest, highest);
}

std::optional<bool> parseFlag(std::string_view text) {
    const auto number = parseInteger(text, 0, 1);
    return number ? std::optional(*number == 1) : std::nullopt;
}

// Six hexadecimal digits, with or without a number sign; of a list the first.
std::optional<ChartColour> parseColour(std::string_view text) {
    text = withoutBlanks(text.substr(0, text.find(',')));
    if (text.starts_with('#'))
        text.remove_prefix(1);
    std::uint32_t rgb = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), rgb, 16);
    if (text.size() != 6 || error != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return ChartColour{static_cast<std::uint8_t>(rgb >> 16),
                       static_cast<std::uint8_t>(rgb >> 8 & 0xFF),
                       static_cast<std::uint8_t>(rgb & 0xFF)};
}

// The attributes that mean something; the others are read and dropped.
constexpr std::array<std::string_view, 34> attributeNames{"caption",
                                                          "subcaption",
                                                          "yaxismaxvalue",
                                                          "numdivlines",
                                                          "showvalues",
                                                          "showlabels",
                                                          "decimals",
                                                          "showpercentagevalues",
                                                          "showzeropies",
                                                          "startingangle",
                                                          "slicingdistance",
                                                          "basefont",
                                                          "label",
                                                          "value",
                                                          "tooltext",
                                                          "outcnvbasefontsize",
                                                          "displayvalue",
                                                          "showvalue",
                                                          "color",
                                                          "plotbordercolor",
                                                          "alpha",
                                                          "issliced",
                                                          "seriesname",
                                                          "thickness",
                                                          "startvalue",
                                                          "endvalue",
                                                          "istrendzone",
                                                          "dashed",
                                                          "name",
                                                          "font",
                                                          "size",
                                                          "bgcolor",
                                                          "toobject",
                                                          "styles"};

// One tag with the first value of each attribute.
class Tag {
public:
    std::string_view name;
    bool closing = false;

    void remember(std::string_view attribute, std::string_view value) {
        for (std::size_t i = 0; i < attributeNames.size(); ++i) {
            if (equalName(attribute, attributeNames[i])) {
                if (!values_[i])
                    values_[i] = value;
                return;
            }
        }
    }

    // The attribute's text as it stands; empty when the tag has no such attribute. The name must be
    // one of the list.
    [[nodiscard]] std::optional<std::string_view> find(std::string_view attribute) const {
        const auto* at = std::find(attributeNames.begin(), attributeNames.end(), attribute);
        assert(at != attributeNames.end());
        return values_[static_cast<std::size_t>(at - attributeNames.begin())];
    }

    [[nodiscard]] std::string_view get(std::string_view attribute) const {
        return find(attribute).value_or(std::string_view{});
    }

    [[nodiscard]] std::string text(std::string_view attribute) const {
        return boundedText(get(attribute));
    }

private:
    std::array<std::optional<std::string_view>, attributeNames.size()> values_;
};

// Cuts the document into tags; each byte is looked at a bounded number of times.
class TagReader {
public:
    explicit TagReader(std::string_view document) : text_(document) {}

    // The next tag; empty at the end.
    std::optional<Tag> next() {
        at_ = text_.find('<', at_);
        if (at_ == std::string_view::npos) {
            at_ = text_.size();
            return std::nullopt;
        }
        ++at_;
        Tag tag;
        tag.closing = !atEnd() && text_[at_] == '/';
        if (tag.closing)
            ++at_;
        tag.name = readName();
        readAttributes(tag);
        return tag;
    }

private:
    [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }

    std::string_view readName() {
        const std::size_t begin = at_;
        while (!atEnd() && !isBlank(text_[at_]) && !isQuote(text_[at_]) &&
               std::string_view("=/<>").find(text_[at_]) == std::string_view::npos)
            ++at_;
        return text_.substr(begin, at_ - begin);
    }

    void skipBlanks() {
        while (!atEnd() && isBlank(text_[at_]))
            ++at_;
    }

    void readAttributes(Tag& tag) {
        while (!atEnd() && text_[at_] != '<') {
            if (text_[at_] == '>') {
                ++at_;
                return;
            }
            const std::string_view name = readName();
            if (name.empty()) { // a blank, or a stray sign behind a text that ended early
                ++at_;
                continue;
            }
            skipBlanks();
            if (!atEnd() && text_[at_] == '=') {
                ++at_;
                skipBlanks();
                tag.remember(name, readValue());
            }
        }
    }

    // A quote that is never closed (which can happen once for each sign) ends with its tag.
    std::string_view readValue() {
        if (atEnd() || !isQuote(text_[at_]))
            return readName();
        const char quote = text_[at_++];
        std::size_t end = text_.find(quote, at_);
        const bool closed = end != std::string_view::npos;
        if (!closed)
            end = std::min(text_.find('>', at_), text_.size());
        const std::string_view value = text_.substr(at_, end - at_);
        at_ = closed ? end + 1 : end;
        return value;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

// Fills a model tag by tag.
class ModelBuilder {
public:
    explicit ModelBuilder(ChartKind kind) { model_.kind = kind; }

    void take(const Tag& tag) {
        if (tag.closing)
            return;
        using Handler = void (ModelBuilder::*)(const Tag&);
        static constexpr std::array<std::pair<std::string_view, Handler>, 8> handlers{{
            {"chart", &ModelBuilder::takeHead},
            {"category", &ModelBuilder::takeCategory},
            {"vline", &ModelBuilder::takeSeparator},
            {"dataset", &ModelBuilder::takeSeries},
            {"set", &ModelBuilder::takeValue},
            {"line", &ModelBuilder::takeTrendLine},
            {"style", &ModelBuilder::takeStyle},
            {"apply", &ModelBuilder::takeApplication},
        }};
        for (const auto& [name, handler] : handlers)
            if (equalName(tag.name, name))
                (this->*handler)(tag);
    }

    ChartModel finish() {
        model_.valueStyle = styleOf("datavalues");
        model_.captionStyle = styleOf("caption");
        model_.toolTextStyle = styleOf("tooltip");
        return std::move(model_);
    }

private:
    struct NamedStyle {
        std::string name;
        ChartTextStyle style;
    };
    struct Application {
        std::string object;
        std::string style;
    };

    void takeHead(const Tag& tag) {
        if (headTaken_)
            return;
        headTaken_ = true;
        model_.caption = tag.text("caption");
        model_.subcaption = tag.text("subcaption");
        if (const auto maximum = parseNumber(tag.get("yaxismaxvalue")); maximum && *maximum > 0)
            model_.axisMaximum = std::max(*maximum, 1e-3);
        model_.divisionLines = parseInteger(tag.get("numdivlines"), 0, 20).value_or(3);
        model_.showValues = parseFlag(tag.get("showvalues")).value_or(true);
        model_.showLabels = parseFlag(tag.get("showlabels")).value_or(true);
        model_.showPercentages = parseFlag(tag.get("showpercentagevalues")).value_or(false);
        model_.showZeroSlices = parseFlag(tag.get("showzeropies")).value_or(true);
        model_.decimals = parseInteger(tag.get("decimals"), 0, 4).value_or(0);
        model_.startAngle = std::fmod(parseNumber(tag.get("startingangle")).value_or(0), 360.0);
        model_.slicingDistance = parseInteger(tag.get("slicingdistance"), 0, 100).value_or(12);
        model_.baseFamily = tag.text("basefont");
        model_.labelSize = parseInteger(tag.get("outcnvbasefontsize"), 6, 48).value_or(14);
        model_.plotBorder = parseColour(tag.get("plotbordercolor"));
    }

    void takeCategory(const Tag& tag) {
        if (model_.categories.size() < maxCategories)
            model_.categories.push_back(tag.text("label"));
    }

    void takeSeparator(const Tag& tag) {
        if (model_.separators.size() == maxCategories)
            return;
        model_.separators.push_back(
            {.position = model_.categories.size(),
             .colour = parseColour(tag.get("color")).value_or(lineColour),
             .thickness = parseInteger(tag.get("thickness"), 1, 10).value_or(1),
             .label = tag.text("label")});
    }

    void takeSeries(const Tag& tag) {
        ++seriesSeen_;
        if (model_.series.size() < maxSeries)
            model_.series.push_back({.name = tag.text("seriesname"),
                                     .colour = parseColour(tag.get("color")),
                                     .alpha = parseInteger(tag.get("alpha"), 0, 100).value_or(100),
                                     .values = {}});
    }

    // Values before any series make one without a name; those of dropped series are dropped.
    void takeValue(const Tag& tag) {
        const bool pie = model_.kind == ChartKind::pie;
        if (!pie && model_.series.empty())
            takeSeries(Tag{});
        if (!pie && seriesSeen_ > model_.series.size())
            return;
        auto& values = pie ? model_.slices : model_.series.back().values;
        if (values.size() == (pie ? maxSlices : maxCategories))
            return;
        ChartValue value;
        value.value = parseNumber(tag.get("value")).value_or(0);
        value.label = tag.text("label");
        value.toolText = tag.text("tooltext");
        if (tag.find("displayvalue"))
            value.displayValue = tag.text("displayvalue");
        value.shown = parseFlag(tag.get("showvalue"));
        value.colour = parseColour(tag.get("color"));
        value.sliced = parseFlag(tag.get("issliced")).value_or(false);
        values.push_back(std::move(value));
    }

    void takeTrendLine(const Tag& tag) {
        const auto start = parseNumber(tag.get("startvalue"));
        if (!start || model_.trendLines.size() == maxTrendLines)
            return;
        ChartTrendLine line{.start = *start,
                            .end = std::nullopt,
                            .dashed = parseFlag(tag.get("dashed")).value_or(false),
                            .text = boundedText(withoutBlanks(tag.get("displayvalue"))),
                            .colour = parseColour(tag.get("color")).value_or(lineColour)};
        if (parseFlag(tag.get("istrendzone")).value_or(false))
            line.end = parseNumber(tag.get("endvalue"));
        model_.trendLines.push_back(std::move(line));
    }

    void takeStyle(const Tag& tag) {
        if (styles_.size() < maxStyles)
            styles_.push_back({tag.text("name"),
                               {.family = tag.text("font"),
                                .size = parseInteger(tag.get("size"), 6, 48),
                                .colour = parseColour(tag.get("color")),
                                .ground = parseColour(tag.get("bgcolor"))}});
    }

    void takeApplication(const Tag& tag) {
        if (applications_.size() < maxStyles)
            applications_.push_back({tag.text("toobject"), tag.text("styles")});
    }

    // A style may be applied before it is defined.
    [[nodiscard]] ChartTextStyle styleOf(std::string_view object) const {
        for (const Application& application : applications_)
            if (equalName(application.object, object))
                for (const NamedStyle& named : styles_)
                    if (equalName(named.name, application.style))
                        return named.style;
        return {};
    }

    ChartModel model_;
    bool headTaken_ = false;
    std::size_t seriesSeen_ = 0;
    std::vector<NamedStyle> styles_;
    std::vector<Application> applications_;
};

} // namespace

ChartModel parseChartDocument(std::string_view xml, int chartType) {
    constexpr int pieType = 4;
    ModelBuilder builder(chartType == pieType ? ChartKind::pie : ChartKind::columns);
    TagReader reader(xml);
    while (const auto tag = reader.next())
        builder.take(*tag);
    return builder.finish();
}

} // namespace vorna
