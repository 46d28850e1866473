// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>
#include <QTranslator>

#include <vector>

/// The languages of the program. While one lives, the program speaks the language that was set:
/// texts, plural forms, and the numbers of widgets that take the default locale.
///
/// Setting a language sends QEvent::LanguageChange to every window.
///
/// Threads: the event-loop thread.
class Translations : public QObject
{
    Q_OBJECT

public:
    struct Language
    {
        QString code;
        QString name;  ///< in the language itself; never translated
    };

    explicit Translations(QObject* pParent = nullptr);
    ~Translations() override;

    /// English first, the others by name.
    static const std::vector<Language>& getLanguages();
    /// The code of ours that serves pCode best: "de" for "de_AT"; for an empty code, the best of
    /// the system's languages; "en" when we have none of them.
    static QString Match(const QString& pCode);

    /// Speaks the language that serves pCode best. False, and English, when its texts cannot be
    /// loaded.
    bool setLanguage(const QString& pCode);
    /// The code of the language that is spoken; empty before the first setLanguage().
    const QString& getLanguage() const { return m_language; }

private:
    QString m_language;
    QTranslator m_texts;
    QTranslator m_qtTexts;  ///< of Qt's own dialogs and menus
};
