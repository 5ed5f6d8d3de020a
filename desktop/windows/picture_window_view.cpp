#include "clients/picture_window.h"
#include "desktop/binder.h"
#include "desktop/picture_view.h"
#include "desktop/theme.h"
#include "desktop/windows/views.h"
#include "desktop/windows/window_parts.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace vorna {

std::unique_ptr<WindowView> makePictureWindowView(const Session&, PictureWindow& window) {
    auto view = std::make_unique<WindowView>(window);
    Binder& binder = view->binder();
    QVBoxLayout* const lines = windowColumn(*view);
    auto* const picture = new PictureView;
    binder.bind(window.picture, *picture);
    binder.onChange(window.picture, [&window, picture] { picture->setName(qt(window.caption())); });
    lines->addWidget(picture, 1);
    auto* const foot = new WindowFoot;
    foot->addRight(boundButton(binder, window.back, "back", ButtonRole::Primary));
    lines->addWidget(foot);
    view->setFirstSize(900, 900);
    return view;
}

} // namespace vorna
