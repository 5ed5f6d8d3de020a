#include "tests/platform/chart_samples.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vorna::samples {
namespace {

constexpr std::array<int, 12> sidesOrder{9, 8, 2, 3, 0, 1, 11, 10, 4, 5, 7, 6};
constexpr std::array<int, 12> groupsOrder{9, 0, 2, 11, 4, 7, 8, 1, 3, 10, 5, 6};

constexpr std::string_view styleBlock =
    " <styles> <definition> <style name='myValuesFont' type='font' font='Arial' size='12' "
    "color='FFFFFF' bold='1' bgColor='666666' borderColor='666666'/> </definition> <application> "
    "<apply toObject='DataValues' styles='myValuesFont' /> </application> </styles> ";

std::string number(long value) {
    return std::to_string(value);
}

int at(const Values& values, int index) {
    return values[static_cast<std::size_t>(index)];
}

std::string closing(int titleSize) {
    return std::string(styleBlock) +
           " <styles> <definition> <style name='myTitleFont' type='font' font='Verdana' size='" +
           number(titleSize) +
           "'/> </definition> <application> <apply toObject='DataValues' styles='myValuesFont' /> "
           "</application> </styles>  <styles> <definition> <style name='myToolTipFont' "
           "type='font' font='Arial' size='18' color='0100fb'/> </definition> <application> <apply "
           "toObject='ToolTip' styles='myToolTipFont' />  <apply toObject='Caption' "
           "styles='myTitleFont' /> </application> </styles> </chart> ";
}

std::string trendLines(int mean, int low, int high) {
    return "<trendlines><line startValue='" + number(mean) + "' color='fb0101' displayValue='" +
           number(mean) + " ' showOnTop='1' dashed='1'/><line startValue='" + number(low) +
           "' endValue='" + number(high) +
           "' isTrendZone ='1' color='00b005' displayValue=' 'showOnTop='0'/></trendlines>";
}

std::string headTail(const Texts& texts, std::size_t title, int palette) {
    return "subcaption='" + texts.subcaption + "' caption='" + texts.titles[title] + "' palette='" +
           number(palette) + "'>";
}

std::string category(const std::string& label) {
    return "<category label=\"" + label + "\" />";
}

int mean(const Values& values, const std::vector<int>& channels) {
    double sum = 0;
    int count = 0;
    for (const int channel : channels) {
        if (at(values, channel) > 0) {
            sum += at(values, channel);
            ++count;
        }
    }
    return count == 0 ? 0 : static_cast<int>(std::nearbyint(sum / count));
}

int meanOfAll(const Values& values) {
    std::vector<int> all;
    for (int i = 0; i < 24; ++i)
        all.push_back(i);
    return mean(values, all);
}

// The mean of some places of an order on one or both sides.
int meanOfPlaces(const Values& values, const std::array<int, 12>& order, int from, int to,
                 const std::vector<int>& sides) {
    std::vector<int> channels;
    for (const int side : sides)
        for (int i = from; i < to; ++i)
            channels.push_back(order[static_cast<std::size_t>(i)] + side * 12);
    return mean(values, channels);
}

bool flagged(const Measurement& measurement, int value, int other, int reference) {
    return measurement.allFlagged || std::abs(value - reference) > measurement.tolerance ||
           std::abs(value - other) > 50;
}

std::string bar(int value, const std::string& toolText, bool shown, std::string_view colour) {
    return "<set value=\"" + number(value) + "\" tooltext='" + toolText + "' showvalue='" +
           (shown ? "1" : "0") + "' color='" + std::string(colour) + "'/>";
}

std::string meanBar(int value, std::string_view colour, const std::string& toolText,
                    const std::string& display) {
    return "<set value=\"" + number(value) + "\" Color='" + std::string(colour) + "' toolText='" +
           toolText + "'  displayValue='" + display + "' showvalue='1'/>";
}

} // namespace

Values sampleValues() {
    return {88, 102, 91, 112, 74, 96,  58, 62,  131, 149, 92, 90,
            94, 97,  89, 172, 79, 104, 64, 118, 126, 214, 99, 93};
}

Values allEqual(int value) {
    Values values{};
    values.fill(value);
    return values;
}

std::vector<Texts> allTexts() {
    return {
        {"cs",
         "Nováková_Jana, 12.10.2026 09:42, P – prameny, Mgr. Eva Horáková",
         "Průměr",
         "jin",
         "jang",
         "vlevo",
         "vpravo",
         "podíl",
         {"S/HT ", "TeS/SI ", "OS/PC ", "TO/TE ", "P/LU ", "TS/LI ", "MM/BL ", "L/KI ", "Žl/GB ",
          "J/LR ", "Ž/ST ", "SS/SP "},
         {"Dřevo", "Oheň", "Země", "Kov", "Voda"},
         {"jin a jang", "vlevo a vpravo", "nahoře a dole"},
         {"L šao-jin, tchaj-jang", "P tchaj-jin, jang-ming", "L tchaj-jin, jang-ming",
          "P ťüe-jin, šao-jang", "L ťüe-jin, šao-jang", "P šao-jin, tchaj-jang"},
         {"DRÁHY – LEVÁ A PRAVÁ STRANA", "DRÁHY – JIN A JANG", "PĚT PRVKŮ", "BILANCE TĚLA",
          "ENERGETICKÉ OKRUHY", "KVADRANTY"}},
        {"en",
         "Nováková_Jana, 10/12/2026 09:42, P – source points, Eva Horáková",
         "Mean",
         "yin",
         "yang",
         "left",
         "right",
         "share",
         {"HT ", "SI ", "PC ", "TE ", "LU ", "LI ", "BL ", "KI ", "GB ", "LR ", "ST ", "SP "},
         {"Wood", "Fire", "Earth", "Metal", "Water"},
         {"yin and yang", "left and right", "upper and lower"},
         {"L shaoyin, taiyang", "R taiyin, yangming", "L taiyin, yangming", "R jueyin, shaoyang",
          "L jueyin, shaoyang", "R shaoyin, taiyang"},
         {"MERIDIANS – LEFT AND RIGHT SIDE", "MERIDIANS – YIN AND YANG", "FIVE ELEMENTS",
          "BALANCE OF THE BODY", "ENERGY CIRCUITS", "QUADRANTS"}},
        {"de",
         "Schönbrunner_Margarethe, 12.10.2026 09:42, P – Quellpunkte, Dr. Eva Winter",
         "Mittel",
         "Yin",
         "Yang",
         "links",
         "rechts",
         "Anteil",
         {"He/HT ", "Dü/SI ", "Pe/PC ", "3E/TE ", "Lu/LU ", "Di/LI ", "Bl/BL ", "Ni/KI ", "Gb/GB ",
          "Le/LR ", "Ma/ST ", "MP/SP "},
         {"Holz", "Feuer", "Erde", "Metall", "Wasser"},
         {"Yin und Yang", "links und rechts", "oben und unten"},
         {"L Shaoyin, Taiyang", "R Taiyin, Yangming", "L Taiyin, Yangming", "R Jueyin, Shaoyang",
          "L Jueyin, Shaoyang", "R Shaoyin, Taiyang"},
         {"MERIDIANE – LINKE UND RECHTE KÖRPERSEITE", "MERIDIANE – YIN UND YANG",
          "FÜNF WANDLUNGSPHASEN", "KÖRPERBILANZ", "ENERGIEKREISLÄUFE", "QUADRANTEN"}},
        {"ru",
         "Кузнецова_Ирина, 12.10.2026 09:42, P – точки-источники, Е. Волкова",
         "Среднее",
         "инь",
         "ян",
         "слева",
         "справа",
         "доля",
         {"C/HT ", "IG/SI ", "MC/PC ", "TR/TE ", "P/LU ", "GI/LI ", "V/BL ", "R/KI ", "VB/GB ",
          "F/LR ", "E/ST ", "RP/SP "},
         {"Дерево", "Огонь", "Земля", "Металл", "Вода"},
         {"инь и ян", "слева и справа", "сверху и снизу"},
         {"Л шао-инь, тай-ян", "П тай-инь, ян-мин", "Л тай-инь, ян-мин", "П цзюэ-инь, шао-ян",
          "Л цзюэ-инь, шао-ян", "П шао-инь, тай-ян"},
         {"МЕРИДИАНЫ – ЛЕВАЯ И ПРАВАЯ СТОРОНА", "МЕРИДИАНЫ – ИНЬ И ЯН", "ПЯТЬ ПЕРВОЭЛЕМЕНТОВ",
          "БАЛАНС ТЕЛА", "ЭНЕРГЕТИЧЕСКИЕ КРУГИ", "КВАДРАНТЫ"}},
    };
}

std::string sidesDocument(const Measurement& m, const Texts& t) {
    const int all = meanOfAll(m.values);
    const int left = meanOfPlaces(m.values, sidesOrder, 0, 12, {0});
    const int right = meanOfPlaces(m.values, sidesOrder, 0, 10, {1});
    std::string document =
        "<chart yAxisMaxValue='200' outCnvBaseFontSize='14' animation='0'  "
        "showAlternateHGridColor='0' useRoundEdges='1'  numDivLines ='3' logoScale='100' "
        "bgSWF='..\\logo.jpg' logoAlpha='80'  logoPosition='TR' baseFont='Arial' baseFontSize "
        "='12' baseFontColor ='000000' showvalues='1' showVLineLabelBorder='0'  " +
        headTail(t, 0, 2) + " <categories >" + category(t.mean) +
        "<vLine color='FF5904' thickness='2'/>";
    for (const int channel : sidesOrder)
        document += category(t.shortNames[static_cast<std::size_t>(channel)]);
    document += "</categories>";
    for (const int side : {0, 1}) {
        document += "<dataset seriesname=\"" + (side == 0 ? t.yin : t.yang) +
                    (side == 0 ? "\"   Color='0082fb'   >" : "\" color='fb5f55' >");
        document += side == 0
                        ? meanBar(left, "887d7d", t.mean + number(left) + ", " + t.left, "L")
                        : meanBar(right, "efeded", t.mean + number(right) + ", " + t.right, "P");
        for (std::size_t i = 0; i < 12; ++i) {
            const int value = at(m.values, sidesOrder[i] + side * 12);
            const int other = at(m.values, sidesOrder[i] + (1 - side) * 12);
            const std::string_view colour =
                side == 0 ? (i % 2 == 0 ? "0082fb" : "fb5f55") : (i % 2 == 0 ? "0032fb" : "fb0f00");
            document += bar(value, number(value) + (side == 0 ? "," + t.left : t.right),
                            flagged(m, value, other, all), colour);
        }
        document += "</dataset>";
    }
    const int low = static_cast<int>(std::nearbyint((left + right) / 2.0 - m.tolerance));
    return document + trendLines(all, low, all + m.tolerance) + closing(16);
}

std::string groupsDocument(const Measurement& m, const Texts& t) {
    const int all =
        static_cast<int>(std::nearbyint((meanOfPlaces(m.values, groupsOrder, 0, 12, {0}) +
                                         meanOfPlaces(m.values, groupsOrder, 0, 10, {1})) /
                                        2.0));
    std::string document =
        "<chart yAxisMaxValue='200' baseFontColor='000000' animation='0' "
        "showAlternateHGridColor='0' useRoundEdges='1' numDivLines ='3' "
        "showVlineLabelBorder='1'  baseFont='Arial' baseFontSize ='12'  outCnvBaseFontSize='14' " +
        headTail(t, 1, 2) + " <categories ><category label=\"" + t.yin + " " + t.yang +
        "\"   /><vLine color='0c06ff' thickness='2' label='" + t.yin + "'  />";
    for (std::size_t i = 0; i < 12; ++i) {
        if (i == 6)
            document += "<vLine color='f40101' thickness='2' label='" + t.yang + "'  />";
        document += category(t.shortNames[static_cast<std::size_t>(groupsOrder[i])]);
    }
    document += "</categories>";
    for (const int side : {0, 1}) {
        const std::string& name = side == 0 ? t.yin : t.yang;
        const int group = meanOfPlaces(m.values, groupsOrder, side * 6, side * 6 + 6, {0, 1});
        document +=
            "<dataset seriesname=\"" + name +
            (side == 0 ? "\"  alpha='80' Color='0082fb'   >" : "\" alpha='80' color='fb5f55'  >") +
            meanBar(group, side == 0 ? "efeded" : "887d7d", number(group) + "," + name, name);
        for (std::size_t i = 0; i < 12; ++i) {
            const int value = at(m.values, groupsOrder[i] + side * 12);
            const int other = at(m.values, groupsOrder[i] + (1 - side) * 12);
            const std::string_view colour =
                side == 0 ? (i < 6 ? "0082fb" : "fb5f55") : (i < 6 ? "0032fb" : "fb0f00");
            document += bar(value, number(value) + "," + (side == 0 ? t.left : t.right),
                            flagged(m, value, other, all), colour);
        }
        document += "</dataset>";
    }
    return document + trendLines(all, all - m.tolerance, all + m.tolerance) + closing(16);
}

std::string elementsDocument(const Measurement& m, const Texts& t) {
    struct Pair {
        std::size_t element;
        int yin;
        int yang;
        bool separated;
    };
    constexpr std::array<Pair, 6> pairs{{{0, 9, 8, true},
                                         {1, 0, 1, false},
                                         {1, 2, 3, true},
                                         {2, 11, 10, true},
                                         {3, 4, 5, true},
                                         {4, 7, 6, false}}};
    const int all = meanOfAll(m.values);
    std::string document =
        "<chart yAxisMaxValue='200' baseFontColor='000000'  animation='0' "
        "showAlternateHGridColor='0'  numDivLines ='3' logoScale='100' logoAlpha='80' "
        "useRoundEdges='1' logoURL='logo.jpg'  baseFont='Arial' baseFontSize ='12'  "
        "showvalues='1' showVLineLabelBorder='0'  outCnvBaseFontSize='14' " +
        headTail(t, 2, 2) + " <categories ><vLine color='FF5904' thickness='2'/>" +
        category(t.yin + "      " + t.yang) + "<vLine color='FF5904' thickness='2'/>";
    for (const Pair& pair : pairs) {
        document += category(t.elements[pair.element] + " (" +
                             t.shortNames[static_cast<std::size_t>(pair.yin)] + "," +
                             t.shortNames[static_cast<std::size_t>(pair.yang)] + ")");
        if (pair.separated)
            document += "<vLine color='333333' thickness='1'/>";
    }
    document += "</categories>";
    for (const bool yin : {true, false}) {
        const std::string& name = yin ? t.yin : t.yang;
        std::string bars;
        std::vector<int> channels;
        for (const Pair& pair : pairs) {
            const int channel = yin ? pair.yin : pair.yang;
            channels.insert(channels.end(), {channel, channel + 12});
            const std::string value = number(mean(m.values, {channel, channel + 12}));
            bars += "<set value=\"" + value + "\" tooltext='" + value + ", " + name + " " +
                    t.elements[pair.element] + "'  displayValue='" + value + "' color='" +
                    (yin ? "0082fb" : "fb5f55") + "'/>";
        }
        const int series = mean(m.values, channels);
        document += "<dataset seriesname=\"" + name +
                    (yin ? "\"  alpha='80' Color='0082fb'   >" : "\" alpha='80' Color='fb5f55' >") +
                    meanBar(series, yin ? "efeded" : "887d7d", number(series) + "," + name, name) +
                    bars + "</dataset>";
    }
    return document + trendLines(all, all - m.tolerance, all + m.tolerance) + closing(16);
}

std::string balanceDocument(const Measurement& m, const Texts& t) {
    const std::array<std::vector<int>, 6> groups{{{0, 2, 4, 7, 9, 11, 12, 14, 16, 19, 21, 23},
                                                  {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11},
                                                  {0, 1, 2, 3, 4, 5, 12, 13, 14, 15, 16, 17},
                                                  {1, 2, 5, 6, 9, 13, 14, 17, 18, 21},
                                                  {12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23},
                                                  {6, 7, 8, 9, 10, 11, 18, 19, 20, 21, 22, 23}}};
    const std::array<std::string, 6> names{t.yin,  t.left,  t.groups[0].substr(0, 6),
                                           t.yang, t.right, t.elements[4]};
    std::string document =
        "<chart yAxisMaxValue='200' baseFontColor='000000' animation='0' "
        "showAlternateHGridColor='0' PlotBorderThickness='1' useRoundEdges='1' "
        "PlotBorderColor='858282'  numDivLines ='3'   baseFont='Arial' baseFontSize ='12' "
        "baseFontColor ='000000' showvalues='1' showVLineLabelBorder='0' "
        "outCnvBaseFontSize='14' " +
        headTail(t, 3, 4) + " <categories ><vLine color='FF5904' thickness='2'/>";
    for (const std::string& contrast : t.contrasts)
        document += category(contrast);
    document += "</categories>";
    for (const std::size_t series : {std::size_t{0}, std::size_t{3}}) {
        document += "<dataset seriesname=\"" + names[series] + " / " + names[series + 1] + " / " +
                    names[series + 2] + (series == 0 ? "\"      >" : "\" >");
        for (std::size_t i = series; i < series + 3; ++i) {
            const std::string value = number(mean(m.values, groups[i]));
            document += "<set value=\"" + value + "\" tooltext='" + value + ", " + names[i] +
                        "'  Color='" + (series == 0 ? "ccffff" : "ff9900") + "' displayValue='" +
                        names[i] + "'/>";
        }
        document += "</dataset>";
    }
    const int all = meanOfAll(m.values);
    return document + trendLines(all, all - m.tolerance, all + m.tolerance) + closing(16);
}

std::string energyPieDocument(const Measurement& m, const Texts& t) {
    constexpr std::array<std::array<int, 4>, 6> groups{{{0, 1, 6, 7},
                                                        {16, 17, 22, 23},
                                                        {4, 5, 10, 11},
                                                        {14, 15, 20, 21},
                                                        {2, 3, 8, 9},
                                                        {12, 13, 18, 19}}};
    constexpr std::array<std::string_view, 6> colours{"db1818", "00c6ff", "00aadb",
                                                      "ffff2d", "dbdb26", "ff1c1c"};
    const int all = meanOfAll(m.values);
    std::string document = "<chart  startingAngle='90' subcaption='" + t.subcaption +
                           "' caption='" + t.titles[4] +
                           "' showPercentageValues='1'  baseFontColor ='000000' "
                           "baseFont='Arial' baseFontSize ='14'   palette='4'    showBorder='1' >";
    for (std::size_t i = 0; i < 6; ++i) {
        const int value = mean(m.values, {groups[i].begin(), groups[i].end()});
        const int percent =
            all == 0 ? 0 : static_cast<int>(std::nearbyint((value - all) * 100.0 / all));
        document += "<set label=\"" + t.groups[i] + "\" value='" + number(value) + "' tooltext='" +
                    t.groups[i] + ", " + t.share + ": " + number(value) + "'  displayValue='" +
                    t.groups[i] + ": " + number(percent) + "' color='" + std::string(colours[i]) +
                    "'" + (std::abs(value - all) > m.tolerance ? " issliced='1'" : "") + "/>";
    }
    return document + closing(16);
}

std::string quadrantPieDocument(const Measurement& m, const Texts& t) {
    constexpr std::array<std::array<int, 2>, 4> quarters{{{1, 1}, {1, 0}, {0, 0}, {0, 1}}};
    std::string document =
        "<chart  caption='" + t.titles[5] +
        "' showValues='1' showLabels='1' decimals='0' charttopmargin='5' captionpadding='1' "
        "showzeropies='1' showPercentageValues='1' startingAngle='0' baseFontColor ='000000' "
        "baseFont='Arial' baseFontSize ='14'   palette='4'    showBorder='1' "
        "slicingDistance='15'>";
    for (std::size_t q = 0; q < 4; ++q) {
        std::vector<int> channels;
        for (std::size_t i = 0; i < 12; ++i)
            if (static_cast<int>(i % 2) == quarters[q][0])
                channels.push_back(sidesOrder[i] + quarters[q][1] * 12);
        const int value = mean(m.values, channels);
        document += "<set  value='" + number(value) + "' tooltext='" +
                    (quarters[q][1] == 0 ? t.left : t.right) + ", " + t.share + ": " +
                    number(value) + "'  color='" + (q < 2 ? "fe0000" : "0082fb") + "' issliced='" +
                    (q == 2 ? "1" : "0") + "' />";
    }
    return document + closing(14);
}

namespace {

constexpr std::array<std::string_view, 6> elementColours{"0001fc", "ffff00", "ff2929",
                                                         "ff2929", "17ab0c", "000000"};

} // namespace

std::string sidePieDocument(const Measurement& m, const Texts& t) {
    constexpr std::array<int, 6> channels{5, 10, 3, 1, 8, 6};
    std::string document =
        "<chart  caption='" + t.left + " – " + t.yang +
        "' showValues='1' showLabels='1' decimals='0' charttopmargin='5' captionpadding='1' "
        "showzeropies='1' showPercentageValues='1' startingAngle='270' baseFontColor ='000000' "
        "baseFont='Arial' baseFontSize ='14'   palette='4'    showBorder='1' "
        "slicingDistance='15'>";
    for (std::size_t i = 0; i < 6; ++i) {
        const std::string value = number(at(m.values, channels[i]));
        document += "<set  label=\"" + t.shortNames[static_cast<std::size_t>(channels[i])] +
                    "\" value='" + value + "' tooltext='" + t.elements[i % 5] + ", " + t.share +
                    ": " + value + "'   color='" + std::string(elementColours[i]) + "'" +
                    (i == 5 ? " issliced='1'" : "") + "/>";
    }
    return document + closing(14);
}

std::string elementPieDocument(const Measurement& m, const Texts& t) {
    constexpr std::array<std::array<int, 2>, 6> channels{
        {{9, 8}, {7, 6}, {3, 2}, {5, 4}, {1, 0}, {11, 10}}};
    constexpr std::array<std::size_t, 6> labels{3, 2, 1, 1, 0, 4};
    const int all = meanOfAll(m.values);
    std::string document =
        "<chart caption='" + t.titles[2] +
        "' showValues='1' showLabels='1' decimals='0'  showPercentageValues='1' "
        "startingAngle='270' baseFontColor ='000000' baseFont='Arial' baseFontSize ='14'   "
        "palette='4'    showBorder='1' slicingDistance='10'>";
    for (std::size_t i = 0; i < 6; ++i) {
        const int value = mean(
            m.values, {channels[i][0], channels[i][0] + 12, channels[i][1], channels[i][1] + 12});
        const bool far = std::abs(value - all) > m.tolerance;
        document += "<set  label=\"" + t.elements[labels[i]] +
                    (i == 3 ? "\"value='" : "\" value='") + number(value) + "' tooltext='" +
                    t.elements[labels[i]] + " " + number(value - all) + "'   color='" +
                    std::string(elementColours[i]) + "'" +
                    (far      ? " issliced='1'"
                     : i == 4 ? ""
                              : " issliced='0'") +
                    "/>";
    }
    return document + closing(16);
}

std::vector<Sample> allCharts(const std::string& name, const Measurement& m, const Texts& t) {
    return {{name + "-sides", columnsType, sidesDocument(m, t)},
            {name + "-groups", columnsType, groupsDocument(m, t)},
            {name + "-elements", columnsType, elementsDocument(m, t)},
            {name + "-balance", columnsType, balanceDocument(m, t)},
            {name + "-energy", pieType, energyPieDocument(m, t)},
            {name + "-quadrant", pieType, quadrantPieDocument(m, t)},
            {name + "-side-pie", pieType, sidePieDocument(m, t)},
            {name + "-element-pie", pieType, elementPieDocument(m, t)}};
}

std::vector<Sample> allSamples() {
    const std::vector<Texts> languages = allTexts();
    std::vector<Sample> samples;
    const auto add = [&](const std::string& name, const Measurement& measurement,
                         const Texts& texts) {
        for (Sample& sample : allCharts(name + "-" + texts.language, measurement, texts))
            samples.push_back(std::move(sample));
    };
    Values jagged{};
    Values oneOnly{};
    oneOnly[9] = 150;
    for (std::size_t i = 0; i < jagged.size(); ++i)
        jagged[i] = i % 3 == 0 ? 245 : i % 3 == 1 ? 100 : 199;
    for (const Texts& texts : languages) {
        add("sample", {}, texts);
        add("flagged", {.tolerance = 0, .allFlagged = true}, texts);
        add("over", {.values = allEqual(250), .allFlagged = true}, texts);
        add("top", {.values = allEqual(198), .allFlagged = true}, texts);
        add("equal", {.values = allEqual(100), .allFlagged = true}, texts);
        add("jagged", {.values = jagged, .tolerance = 0, .allFlagged = true}, texts);
        add("zero", {.values = allEqual(0), .allFlagged = true}, texts);
        add("one", {.values = oneOnly}, texts);
    }
    Texts strange = languages.front();
    strange.language = "odd";
    strange.subcaption = "O'Brien & Söhne <a> \"b\"_Jana, 12.10.2026 09:42, P – prameny";
    strange.titles.fill("D'ACUPUNCTURE & CO");
    strange.left = "strana d'Or";
    add("strange", {}, strange);
    Texts longTexts = languages[2];
    longTexts.language = "long";
    longTexts.mean = "Durchschnittlicher Energiewert";
    longTexts.yin = "Yin-Meridiane der Arme und Beine";
    longTexts.yang = "Yang-Meridiane der Arme und Beine";
    for (std::string& name : longTexts.shortNames)
        name = "Dreifacher-Erwärmer-" + name;
    for (std::string& group : longTexts.groups)
        group += " und noch manches andere, das nie enden will";
    for (std::string& title : longTexts.titles)
        title += " – EINE ÜBERAUS LANGE ÜBERSCHRIFT, DIE AUF KEINE SEITE PASST, SO KLEIN SIE WIRD";
    add("long", {.tolerance = 0, .allFlagged = true}, longTexts);
    return samples;
}

std::string damaged(std::string document, std::mt19937& random) {
    const auto below = [&](std::size_t bound) { return random() % bound; };
    for (std::size_t damages = 1 + below(8); damages > 0 && !document.empty(); --damages) {
        const std::size_t at = below(document.size());
        switch (below(3)) {
        case 0:
            document[at] = static_cast<char>(below(256));
            break;
        case 1:
            document.erase(at, below(40));
            break;
        default:
            document.insert(at, std::string(1 + below(3), "'\"<>/= \0"[below(8)]));
        }
    }
    return document;
}

} // namespace vorna::samples
