// The demonstration's overview page: for each measurement its charts with what was found.
#pragma once

#include <string>
#include <vector>

namespace vorna {

struct ShownDocument {
    std::string control;
    std::string picture; // file name beside the page
};

struct ShownEvaluation {
    std::string title;
    std::vector<ShownDocument> documents;
    std::vector<std::string> lines; // problem rows, labels or the evaluation text
};

struct ShownMeasurement {
    std::string heading;
    std::vector<std::string> messages;
    std::vector<ShownEvaluation> evaluations;
};

std::string formatOverviewPage(const std::string& client,
                               const std::vector<ShownMeasurement>& measurements);

} // namespace vorna
