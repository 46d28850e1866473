// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebDocument.h>
#include <shared/web/detail/WebMessages.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

#include <support/TestClass.h>

namespace {

/// What the first group of an expression matches, each time.
QStringList allOf(const QString& pText, const QString& pExpression)
{
    QStringList found;
    auto match = QRegularExpression(pExpression).globalMatch(pText);
    while (match.hasNext())
        found += match.next().captured(1);
    return found;
}

}  // namespace

/// What is served is whole, and speaks four languages.
class tst_WebDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void page_needsNothingElse();
    void buttons_areUnderstood();
    void texts_areThereInEachLanguage();
    void texts_standOnce();
    void texts_areThoseThatAreUsed();

private:
    QString m_page;
    QJsonObject m_texts;
};

void tst_WebDocument::initTestCase()
{
    m_page = QString::fromUtf8(shared::detail::readWebDocument());
    const QStringList texts =
        allOf(m_page, QStringLiteral("(?s)<script type=[^>]*>(.*?)</script>"));
    QCOMPARE(texts.size(), 1);
    m_texts = QJsonDocument::fromJson(texts[0].toUtf8()).object();
    QVERIFY(!m_texts.isEmpty());
}

void tst_WebDocument::page_needsNothingElse()
{
    QVERIFY(m_page.startsWith(QLatin1String("<!DOCTYPE html>")));
    QVERIFY(m_page.endsWith(QLatin1String("</html>\n")));
    for (const char* outside : {"http://", "https://", "src=", "url(", "@import", ".css@", ".js@"})
        QVERIFY2(!m_page.contains(QLatin1String(outside)), outside);
}

void tst_WebDocument::buttons_areUnderstood()
{
    const QStringList actions = allOf(m_page, QStringLiteral("data-do=\"([^\"]*)\""));
    QCOMPARE(actions.size(), 8);
    for (const QString& action : actions)
        QVERIFY2(shared::detail::ReadWebMessage(action), qPrintable(action));
}

void tst_WebDocument::texts_areThereInEachLanguage()
{
    const QStringList languages = {
        QStringLiteral("de"), QStringLiteral("en"), QStringLiteral("es"), QStringLiteral("fr")};
    for (auto text = m_texts.begin(); text != m_texts.end(); ++text) {
        const QJsonObject words = text.value().toObject();
        QCOMPARE(words.keys(), languages);
        for (const QString& language : languages)
            QVERIFY2(!words[language].toString().trimmed().isEmpty(), qPrintable(text.key()));
    }
}

void tst_WebDocument::texts_standOnce()
{
    QSet<QString> english;
    for (const auto& text : qAsConst(m_texts)) {
        const QString words = text.toObject()[QStringLiteral("en")].toString();
        QVERIFY2(!english.contains(words), qPrintable(words));
        english.insert(words);
    }
    // Nor do any stand in the page itself, beside the unit of the tempo.
    const QString body =
        m_page.section(QStringLiteral("<body>"), 1).section(QStringLiteral("<script"), 0, 0);
    QStringList words = allOf(body, QStringLiteral(">([^<>]*[a-zA-Z][^<>]*)<"));
    QCOMPARE(words, QStringList{QStringLiteral("BPM")});
}

void tst_WebDocument::texts_areThoseThatAreUsed()
{
    const QString script = m_page.section(QStringLiteral("<script>"), 1);
    QStringList used = allOf(m_page, QStringLiteral("data-text=\"([a-z]+)\""));
    // What the server may say of who leads.
    used += {QStringLiteral("music"), QStringLiteral("hand"), QStringLiteral("held")};
    for (const QString& call : allOf(script, QStringLiteral("say\\(([^)]*)\\)")))
        used += allOf(call, QStringLiteral("\"([a-z]+)\""));
    used.removeDuplicates();
    used.sort();
    QCOMPARE(used, m_texts.keys());
}

AA_TEST(tst_WebDocument, NoApplication)

#include "tst_WebDocument.moc"
