// SPDX-License-Identifier: MIT
#include "LanguageRows.h"
#include <desktop/settings/Translations.h>

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>

#include <support/TestClass.h>
#include <support/Text.h>
#include <vector>

namespace {

const QString kProject = QStringLiteral(PROJECT_FOLDER);

/// One text of a translation file.
struct Message
{
    QString context;
    QString source;
    QString comment;
    QStringList translations;  ///< several of a plural
    bool isPlural = false;
    bool isFinished = true;

    QString getName() const { return context + Text(": ") + source; }
};

std::vector<Message> ReadMessages(const QString& pLanguage)
{
    QFile file(kProject +
               QStringLiteral("/apps/desktop/translations/beat-monitor_%1.ts").arg(pLanguage));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    std::vector<Message> messages;
    QXmlStreamReader xml(&file);
    QString context;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto element = xml.name();
        if (element == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (element == QLatin1String("message")) {
            messages.emplace_back();
            messages.back().context = context;
            messages.back().isPlural = xml.attributes().hasAttribute(QLatin1String("numerus"));
        } else if (element == QLatin1String("source")) {
            messages.back().source = xml.readElementText();
        } else if (element == QLatin1String("comment")) {
            messages.back().comment = xml.readElementText();
        } else if (element == QLatin1String("translation")) {
            messages.back().isFinished = !xml.attributes().hasAttribute(QLatin1String("type"));
            if (!messages.back().isPlural)
                messages.back().translations.append(xml.readElementText());
        } else if (element == QLatin1String("numerusform")) {
            messages.back().translations.append(xml.readElementText());
        }
    }
    if (xml.hasError())
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(xml.errorString()));
    return messages;
}

/// %1, %L2, %n and the like, sorted.
QStringList Placeholders(const QString& pText)
{
    static const QRegularExpression kPlaceholder(Text("%(L?\\d+|n)"));
    QStringList found;
    auto matches = kPlaceholder.globalMatch(pText);
    while (matches.hasNext())
        found.append(matches.next().captured());
    found.sort();
    return found;
}

int MnemonicCount(QString pText)
{
    return pText.remove(Text("&&")).count(QLatin1Char('&'));
}

/// The sign that a label, a sentence or an opening button ends with; none for other texts.
QString End(const QString& pText)
{
    const QString last = pText.trimmed().right(1);
    return Text(":….?").contains(last) ? last : QString();
}

void ForeignRows()
{
    QTest::addColumn<QString>("language");
    for (const char* pLanguage : {"de", "es", "fr"})
        QTest::newRow(pLanguage) << Text(pLanguage);
}

}  // namespace

/// The translation files hold every text, well translated as far as that can be seen.
class tst_TranslationFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void files_areUpToDate();
    void files_holdTheSameTexts_data();
    void files_holdTheSameTexts();
    void contexts_areThoseOfClasses();
    void texts_areTranslated_data();
    void texts_areTranslated();
    void placeholders_agree_data();
    void placeholders_agree();
    void mnemonics_areKept_data();
    void mnemonics_areKept();
    void ends_agree_data();
    void ends_agree();
};

void tst_TranslationFiles::files_areUpToDate()
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(kProject + Text("/script/translations"), {Text("--check")});
    QVERIFY(process.waitForFinished(60000));
    QVERIFY2(process.exitCode() == 0, process.readAll().constData());
}

void tst_TranslationFiles::files_holdTheSameTexts_data()
{
    ForeignRows();
}

void tst_TranslationFiles::files_holdTheSameTexts()
{
    QFETCH(const QString, language);
    const auto names = [](const QString& pLanguage) {
        QStringList texts;
        for (const Message& message : ReadMessages(pLanguage))
            texts.append(message.getName() + message.comment);
        return texts;
    };
    const QStringList texts = names(language);
    QVERIFY(texts.size() > 100);
    QCOMPARE(texts, names(Text("de")));
}

/// A function that names its context is not understood by lupdate, which takes the context from the
/// place: such a text would never be found.
void tst_TranslationFiles::contexts_areThoseOfClasses()
{
    QDirIterator files(kProject + Text("/apps/desktop"),
                       {Text("*.cpp"), Text("*.h")},
                       QDir::Files,
                       QDirIterator::Subdirectories);
    QVERIFY(files.hasNext());
    while (files.hasNext()) {
        QFile file(files.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(!file.readAll().contains("::translate("), qPrintable(file.fileName()));
    }
}

void tst_TranslationFiles::texts_areTranslated_data()
{
    LanguageRows();
}

void tst_TranslationFiles::texts_areTranslated()
{
    QFETCH(const QString, language);
    for (const Message& message : ReadMessages(language)) {
        QVERIFY2(message.isFinished, qPrintable(message.getName()));
        // All four have a singular and a plural.
        QVERIFY2(message.translations.size() == (message.isPlural ? 2 : 1),
                 qPrintable(message.getName()));
        for (const QString& text : message.translations)
            QVERIFY2(!text.trimmed().isEmpty(), qPrintable(message.getName()));
    }
}

void tst_TranslationFiles::placeholders_agree_data()
{
    LanguageRows();
}

void tst_TranslationFiles::placeholders_agree()
{
    QFETCH(const QString, language);
    for (const Message& message : ReadMessages(language))
        for (const QString& text : message.translations)
            QVERIFY2(Placeholders(text) == Placeholders(message.source), qPrintable(text));
}

void tst_TranslationFiles::mnemonics_areKept_data()
{
    LanguageRows();
}

void tst_TranslationFiles::mnemonics_areKept()
{
    QFETCH(const QString, language);
    for (const Message& message : ReadMessages(language))
        for (const QString& text : message.translations)
            QVERIFY2(MnemonicCount(text) == MnemonicCount(message.source), qPrintable(text));
}

void tst_TranslationFiles::ends_agree_data()
{
    LanguageRows();
}

void tst_TranslationFiles::ends_agree()
{
    QFETCH(const QString, language);
    for (const Message& message : ReadMessages(language)) {
        for (const QString& text : message.translations) {
            QVERIFY2(End(text) == End(message.source), qPrintable(text));
            // Units begin with their blank.
            const QLatin1Char blank(' ');
            QVERIFY2(text.startsWith(blank) == message.source.startsWith(blank), qPrintable(text));
        }
    }
}

AA_TEST(tst_TranslationFiles, QCoreApplication)
#include "tst_TranslationFiles.moc"
