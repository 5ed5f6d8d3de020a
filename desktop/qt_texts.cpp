#include "desktop/qt_texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <array>

namespace vorna {

std::unique_ptr<QTranslator> textsOfQt(int language) {
    constexpr std::array locales{"en", "cs", "en", "de", "ru"};
    const auto index = static_cast<std::size_t>(language);
    const QLocale locale(locales.at(index < locales.size() ? index : 0));
    auto translator = std::make_unique<QTranslator>();
    if (translator->load(locale, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator.get());
    return translator;
}

} // namespace vorna
