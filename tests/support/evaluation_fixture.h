// A workplace for evaluation: an installation whose texts are their own keys ("t48" is the text of
// t48, "CHART 3" the name of chart 3), a data root made by start-up in English, one client with
// measurements, and windows that are looked at instead of shown.
#pragma once

#include "application/main_window.h"
#include "evaluation/evaluation_state.h"
#include "evaluation/scoring.h"
#include "platform/files.h"
#include "tests/support/test_platform.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vorna {

// What a window showed when it came up.
struct ShownWindow {
    std::string section;
    std::string caption;
    // By control name: a label's caption, a box's text, a chart's document, a picture's path.
    std::map<std::string, std::string> texts;
    std::vector<std::string> rows; // of its list: "text|column 1|...|column 4|tag"
};

// Looks at every modal window, lets `visit` act in it, and closes it when it still stands open.
class RecordingWindows final : public WindowHost {
public:
    void showModal(Window& window) override;

    std::vector<ShownWindow> shown; // in the order in which they came up
    std::function<void(Window&)> visit;
};

// What the attribute of each of a document's elements of a name holds, in the document's order;
// empty text for an element without it.
std::vector<std::string> attributesOf(const std::string& document, const std::string& element,
                                      const std::string& attribute);

// Stored values by slot that all show `chartUnits` under the koef of the desk, 30.
StoredValues levelValues(int chartUnits);
// The same with some slots changed, in chart units.
StoredValues levelValues(int chartUnits, const std::map<int, int>& changed);

// A lively measurement: the liver high, the triple energizer and the kidneys one-sided.
StoredValues sampleValues();

// Each slot shows its own number under the koef of the desk.
StoredValues slotNumbers();

// One process after its start. koef 30, rozstep 50, odchylka 15.
struct EvaluationDesk {
    explicit EvaluationDesk(std::int16_t mode = modeTcm);

    // Writes a measurement of the 31st of January 2025, 14:30:05, into the client's folder and
    // selects it in the measurement list. Returns its file.
    fs::path measure(std::string_view kindLetter, const StoredValues& values,
                     char modeLetter = 'T');
    // Selects a measurement by its name, whether there is such a file or not.
    void select(std::string_view name);
    // Presses chart button n; the windows that came up, which are none when nothing opened.
    const std::vector<ShownWindow>& press(int button);

    TestPlatform seams;
    RecordingWindows windows;
    Session session;
    EvaluationState state;
    MainWindow window;
    EvaluationContext context;
};

} // namespace vorna
