// SPDX-License-Identifier: MIT
#include <desktop/settings/Translations.h>

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

#include <algorithm>

/// Resources of a static library are left out unless they are asked for. Not in a namespace: the
/// macro declares a global function.
static void InitResources()
{
    Q_INIT_RESOURCE(translations);
}

namespace {

/// Empty when none of ours has that code.
QString Find(const QString& pCode)
{
    const QString language = QString(pCode)
                                 .replace(QLatin1Char('-'), QLatin1Char('_'))
                                 .section(QLatin1Char('_'), 0, 0)
                                 .toLower();
    const auto& languages = Translations::getLanguages();
    const bool isKnown = std::any_of(languages.begin(), languages.end(), [&](const auto& pOther) {
        return pOther.code == language;
    });
    return isKnown ? language : QString();
}

/// The comma or the point of numbers, and no grouping: "1.500" would be read in two ways.
QLocale LocaleOf(const QString& pLanguage)
{
    const QLocale system = QLocale::system();
    const QLocale language(pLanguage);
    QLocale locale = system.language() == language.language() ? system : language;
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::RejectGroupSeparator);
    return locale;
}

}  // namespace

Translations::Translations(QObject* pParent) : QObject(pParent)
{
    InitResources();
}

Translations::~Translations()
{
    QCoreApplication::removeTranslator(&m_texts);
    QCoreApplication::removeTranslator(&m_qtTexts);
}

const std::vector<Translations::Language>& Translations::getLanguages()
{
    static const std::vector<Language> languages{
        {QStringLiteral("en"), QStringLiteral("English")},
        {QStringLiteral("de"), QStringLiteral("Deutsch")},
        {QStringLiteral("es"), QStringLiteral("Español")},
        {QStringLiteral("fr"), QStringLiteral("Français")}};
    return languages;
}

QString Translations::Match(const QString& pCode)
{
    const QStringList wanted =
        pCode.isEmpty() ? QLocale::system().uiLanguages() : QStringList(pCode);
    for (const QString& code : wanted) {
        QString found = Find(code);
        if (!found.isEmpty())
            return found;
    }
    return QStringLiteral("en");
}

bool Translations::setLanguage(const QString& pCode)
{
    const QString language = Match(pCode);
    if (language == m_language)
        return true;
    QCoreApplication::removeTranslator(&m_texts);
    QCoreApplication::removeTranslator(&m_qtTexts);
    const bool isLoaded =
        m_texts.load(QStringLiteral(":/translations/beat-monitor_%1.qm").arg(language));
    m_language = isLoaded ? language : QStringLiteral("en");
    QLocale::setDefault(LocaleOf(m_language));
    // Not every system has them; English needs none.
    if (m_qtTexts.load(QStringLiteral("qtbase_%1").arg(m_language),
                       QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qtTexts);
    if (isLoaded)
        QCoreApplication::installTranslator(&m_texts);
    return isLoaded;
}

#include "moc_Translations.cpp"
