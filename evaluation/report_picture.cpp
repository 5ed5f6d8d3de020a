#include "evaluation/report_picture.h"

#include "core/file_names.h"
#include "platform/files.h"

#include <utility>

namespace vorna {
namespace {

using namespace std::chrono_literals;

constexpr auto delay = 2000ms;
constexpr PictureSize size{745, 320}; // logical pixels

} // namespace

ReportPicture::ReportPicture(EvaluationContext& context, ChartControl& chart, Handler due)
    : context_(context), chart_(chart),
      due_(context.platform.loop, delay, Timer::Kind::OneShot, std::move(due)) {
    chart.renderComplete = [this] {
        if (context_.state.ReportChartIndex > 0)
            due_.start();
    };
}

std::string ReportPicture::save() {
    const fs::path file =
        under(context_.session.dataRoot, names::reportChartPicture(context_.state.reportChartKey));
    context_.platform.drawing.draw(chart_.dataXml.get(), chart_.chartType, size, file);
    return pathText(file);
}

} // namespace vorna
