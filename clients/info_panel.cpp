#include "clients/info_panel.h"

namespace vorna {

InfoPanel::InfoPanel(const Session& session) : Window("Form5") {
    setCaption(session.texts.value(section(), "Form5.caption"));
    back.clicked = [this] { close(); };
    applyLanguage(session, *this);
}

} // namespace vorna
