#include "evaluation/chart_document.h"

#include "core/file_names.h"
#include "core/number.h"
#include "platform/files.h"

namespace vorna {
namespace {

std::string joined(std::initializer_list<std::string_view> pieces) {
    std::string text;
    for (const std::string_view piece : pieces)
        text += piece;
    return text;
}

std::string_view fixedHead(int chart) {
    switch (chart) {
    case 1:
        return "<chart yAxisMaxValue='200' outCnvBaseFontSize='14' animation='0'  "
               "showAlternateHGridColor='0' useRoundEdges='1'  numDivLines ='3' logoScale='100' "
               "bgSWF='..\\logo.jpg' logoAlpha='80'  logoPosition='TR' baseFont='Arial' "
               "baseFontSize ='12' baseFontColor ='000000' showvalues='1' "
               "showVLineLabelBorder='0'  ";
    case 2:
        return "<chart yAxisMaxValue='200' baseFontColor='000000' animation='0' "
               "showAlternateHGridColor='0' useRoundEdges='1' numDivLines ='3' "
               "showVlineLabelBorder='1'  baseFont='Arial' baseFontSize ='12'  "
               "outCnvBaseFontSize='14' ";
    case 3:
        return "<chart yAxisMaxValue='200' baseFontColor='000000'  animation='0' "
               "showAlternateHGridColor='0'  numDivLines ='3' logoScale='100' logoAlpha='80' "
               "useRoundEdges='1' logoURL='logo.jpg'  baseFont='Arial' baseFontSize ='12'  "
               "showvalues='1' showVLineLabelBorder='0'  outCnvBaseFontSize='14' ";
    default:
        return "<chart yAxisMaxValue='200' baseFontColor='000000' animation='0' "
               "showAlternateHGridColor='0' PlotBorderThickness='1' useRoundEdges='1' "
               "PlotBorderColor='858282'  numDivLines ='3'   baseFont='Arial' baseFontSize ='12' "
               "baseFontColor ='000000' showvalues='1' showVLineLabelBorder='0' "
               "outCnvBaseFontSize='14' ";
    }
}

constexpr std::string_view smallPieAttributes =
    "' showValues='1' showLabels='1' decimals='0' charttopmargin='5' captionpadding='1' "
    "showzeropies='1' showPercentageValues='1' startingAngle='";
constexpr std::string_view pieFont =
    "baseFontColor ='000000' baseFont='Arial' baseFontSize ='14'   palette='4'    showBorder='1' ";

std::string smallPieHead(std::string_view title, std::string_view startingAngle) {
    return joined({"<chart  caption='", title, smallPieAttributes, startingAngle, "' ", pieFont,
                   "slicingDistance='15'>"});
}

} // namespace

std::string subcaption(const EvaluationContext& context, const std::string& kindLabel) {
    const ListRow* const row = context.measurementList.selectedRow();
    return joined({context.state.ClientLabel, ", ", row != nullptr ? row->text : std::string_view{},
                   ", ", kindLabel,
                   row != nullptr ? row->subItem(practitionerColumn) : std::string_view{}});
}

std::string kindLabel(const EvaluationContext& context) {
    switch (context.state.CurrentKind) {
    case 1:
        return t(context.session, "t45");
    case 2:
        return t(context.session, "t46");
    case 3:
        return t(context.session, "t47");
    default:
        return {};
    }
}

std::string kindLabelOfFour(const EvaluationContext& context) {
    return context.state.CurrentKind == 4 ? t(context.session, "t146") : kindLabel(context);
}

std::string kindLabelOfThree(const EvaluationContext& context) {
    return context.state.CurrentKind > 2 ? t(context.session, "t47") : kindLabel(context);
}

std::string columnHead(int chart, std::string_view subcaption, std::string_view title) {
    return joined({fixedHead(chart), "subcaption='", subcaption, "' caption='", title,
                   chart == 6 ? "' palette='4'>" : "' palette='2'>"});
}

std::string energyPieHead(std::string_view subcaption, std::string_view title) {
    return joined({"<chart  startingAngle='90' subcaption='", subcaption, "' caption='", title,
                   "' showPercentageValues='1'  ", pieFont, ">"});
}

std::string sideElementPieHead(std::string_view title) {
    return smallPieHead(title, "270");
}

std::string quadrantPieHead(std::string_view title) {
    return smallPieHead(title, "0");
}

std::string elementPieHead(std::string_view title) {
    constexpr std::string_view attributes =
        "' showValues='1' showLabels='1' decimals='0'  showPercentageValues='1' "
        "startingAngle='270' ";
    return joined({"<chart caption='", title, attributes, pieFont, "slicingDistance='10'>"});
}

std::string category(std::string_view text) {
    return joined({"<category label=\"", text, "\" />"});
}

std::string labelledSeparator(std::string_view colour, std::string_view text) {
    return joined({"<vLine color='", colour, "' thickness='2' label='", text, "'  />"});
}

std::string openDataset(std::string_view seriesName, std::string_view rest) {
    return joined({"<dataset seriesname=\"", seriesName, "\"", rest});
}

std::string trendLines(std::int32_t mean, std::int64_t low, std::int64_t high) {
    const std::string level = decimalText(std::int64_t{mean});
    return joined({"<trendlines>", "<line startValue='", level, "' color='fb0101' displayValue='",
                   level, " ' showOnTop='1' dashed='1'/>", "<line startValue='", decimalText(low),
                   "' endValue='", decimalText(high),
                   "' isTrendZone ='1' color='00b005' displayValue=' 'showOnTop='0'/>",
                   "</trendlines>"});
}

std::string styleBlock(int titleSize) {
    constexpr std::string_view values =
        " <styles> <definition> <style name='myValuesFont' type='font' font='Arial' size='12' "
        "color='FFFFFF' bold='1' bgColor='666666' borderColor='666666'/> </definition> "
        "<application> <apply toObject='DataValues' styles='myValuesFont' /> </application> "
        "</styles> ";
    constexpr std::string_view titleBegin =
        " <styles> <definition> <style name='myTitleFont' type='font' font='Verdana' size='";
    constexpr std::string_view titleEnd =
        "'/> </definition> <application> <apply toObject='DataValues' styles='myValuesFont' /> "
        "</application> </styles> ";
    constexpr std::string_view toolTip =
        " <styles> <definition> <style name='myToolTipFont' type='font' font='Arial' size='18' "
        "color='0100fb'/> </definition> <application> <apply toObject='ToolTip' "
        "styles='myToolTipFont' />  <apply toObject='Caption' styles='myTitleFont' /> "
        "</application> </styles> </chart> ";
    return joined({values, titleBegin, decimalText(std::int64_t{titleSize}), titleEnd, toolTip});
}

void renderDocument(ChartControl& control, const std::string& document) {
    control.dataXml = document;
    control.renderChart();
}

void prepareControl(const Session& session, ChartControl& control, std::int32_t chartType) {
    control.chartPath = pathText(under(session.appFolder, names::charts));
    control.chartType = chartType;
}

} // namespace vorna
