// SPDX-License-Identifier: MIT
#include <AudioAnalyzer/Version.h>

#include <shared/options/OptionParser.h>

#include <QtTest>

#include <support/TestClass.h>

namespace {

/// What the tests' program may be given.
struct OptionValues
{
    std::string word;
    std::vector<std::string> words;
    std::string text = "before";
    std::string file;
    double number = 2.5;
    double length = 0.0;
    int count = 3;
    bool isLoud = false;
    bool isTwice = false;
    bool isHidden = false;
    std::vector<std::string> told;
};

void AddTo(shared::OptionSet pOptions, OptionValues& pValues)
{
    pOptions.setGroup(QStringLiteral("Sound"));
    pOptions.AddValue(
        "-t,--text", pValues.text, QStringLiteral("WORDS"), QStringLiteral("what to say"));
    pOptions.AddExistingFile("--file", pValues.file, QStringLiteral("what to read"));
    pOptions.AddNumber("--number", pValues.number, 1.0, 9.5, QStringLiteral("how much"));
    pOptions.AddNumber("--length", pValues.length, 0.1, 9.5, QStringLiteral("how long"));
    pOptions.AddNumber("--count", pValues.count, 1, 4, QStringLiteral("how many"));
    pOptions.AddFlag("-l,--loud", pValues.isLoud, QStringLiteral("shout"));
    pOptions.AddFlag("--twice", pValues.isTwice, QStringLiteral("say it again"), "--loud");
    pOptions.AddHiddenFlag("--secret", pValues.isHidden);
    const auto tell = [&pValues](const std::string& pValue) { pValues.told.push_back(pValue); };
    pOptions.AddSetter("--tell", tell, QStringLiteral("THIS"), QStringLiteral("told"));
    pOptions.AddSetter("--nod", tell, {}, QStringLiteral("told without words"));
    pOptions.setFooter(QStringLiteral("That is all."));
}

shared::ParsedOptions ParseWords(shared::OptionParser& pParser, const QList<QByteArray>& pArguments)
{
    std::vector<const char*> arguments = {"program"};
    for (const QByteArray& argument : pArguments)
        arguments.push_back(argument.constData());
    return pParser.Parse(int(arguments.size()), arguments.data());
}

}  // namespace

/// Values, flags, commands, help and refusals of a program of the test's own.
class tst_OptionParser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void values_areFilled();
    void values_stay_whenNotGiven();
    void values_areBytes();
    void setters_areTold_inOrder();
    void words_areTaken();
    void words_areOptional_unlessAskedFor();
    void help_tellsAll();
    void help_hidesTheHidden();
    void help_ofACommand_isItsOwn();
    void version_isTold();
    void commands_areNamed();
    void mistake_isRefused_data();
    void mistake_isRefused();
    void mistakeInACommand_pointsToItsHelp();
    void missingWord_isAskedFor();
};

void tst_OptionParser::values_areFilled()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    QTemporaryFile file;
    QVERIFY(file.open());
    const shared::ParsedOptions parsed = ParseWords(parser,
                                                    {"-t",
                                                     "a b",
                                                     "--file",
                                                     file.fileName().toUtf8(),
                                                     "--number=9.5",
                                                     "--length",
                                                     "0.1",
                                                     "--count",
                                                     "4",
                                                     "-l",
                                                     "--twice",
                                                     "--secret"});
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eRead);
    QCOMPARE(parsed.text, QString());
    QVERIFY(parsed.command.empty());
    QCOMPARE(values.text, std::string("a b"));
    QCOMPARE(values.file, file.fileName().toStdString());
    QCOMPARE(values.number, 9.5);
    QCOMPARE(values.length, 0.1);
    QCOMPARE(values.count, 4);
    QVERIFY(values.isLoud);
    QVERIFY(values.isTwice);
    QVERIFY(values.isHidden);
}

void tst_OptionParser::values_stay_whenNotGiven()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    QCOMPARE(ParseWords(parser, {}).outcome, shared::ParsedOptions::eRead);
    QCOMPARE(values.text, std::string("before"));
    QCOMPARE(values.number, 2.5);
    QCOMPARE(values.length, 0.0);
    QCOMPARE(values.count, 3);
    QVERIFY(!values.isLoud);
    QVERIFY(!values.isTwice);
    QVERIFY(!values.isHidden);
    QVERIFY(values.told.empty());
}

// A file name need not be text.
void tst_OptionParser::values_areBytes()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    QCOMPARE(ParseWords(parser, {"--text", "caf\xe9"}).outcome, shared::ParsedOptions::eRead);
    QCOMPARE(values.text, std::string("caf\xe9"));
}

void tst_OptionParser::setters_areTold_inOrder()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    QCOMPARE(ParseWords(parser, {"--tell", "it", "--nod"}).outcome, shared::ParsedOptions::eRead);
    QCOMPARE(values.told, (std::vector<std::string>{"it", ""}));
}

void tst_OptionParser::words_areTaken()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    shared::OptionSet options = parser.getOptions();
    options.AddWord("FIRST", values.word, QStringLiteral("the first"));
    options.AddWords("REST", values.words, QStringLiteral("the others"));
    const shared::ParsedOptions parsed = ParseWords(parser, {"--", "-a", "-", "--help"});
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eRead);
    QCOMPARE(values.word, std::string("-a"));
    QCOMPARE(values.words, (std::vector<std::string>{"-", "--help"}));
}

void tst_OptionParser::words_areOptional_unlessAskedFor()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    parser.getOptions().AddWord("FIRST", values.word, QStringLiteral("the first"));
    QCOMPARE(ParseWords(parser, {}).outcome, shared::ParsedOptions::eRead);
    QVERIFY(values.word.empty());
}

void tst_OptionParser::help_tellsAll()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    for (const char* pHelp : {"--help", "-h"}) {
        const shared::ParsedOptions parsed = ParseWords(parser, {pHelp});
        QCOMPARE(parsed.outcome, shared::ParsedOptions::eShowText);
        // With the limits of numbers, and their defaults where one is allowed: 0 is no length.
        for (const char* pText : {"Tries.",
                                  "program",
                                  "Sound:",
                                  "-t,--text WORDS",
                                  "what to say",
                                  "--file FILE",
                                  "how much, 1 to 9.5 (default: 2.5)\n",
                                  "how long, 0.1 to 9.5\n",
                                  "how many, 1 to 4 (default: 3)\n",
                                  "--count N",
                                  "-l,--loud",
                                  "Needs: --loud",
                                  "--tell THIS",
                                  "--nod",
                                  "-h,--help",
                                  "--version",
                                  "That is all.\n"})
            QVERIFY2(parsed.text.contains(QLatin1String(pText)),
                     qPrintable(QLatin1String(pText) + QLatin1Char('\n') + parsed.text));
        QVERIFY2(!parsed.text.contains(QLatin1String("\n\n\n")), qPrintable(parsed.text));
    }
}

void tst_OptionParser::help_hidesTheHidden()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    QVERIFY(!ParseWords(parser, {"--help"}).text.contains(QLatin1String("secret")));
}

void tst_OptionParser::help_ofACommand_isItsOwn()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.AddCommand("sing", QStringLiteral("make music")), values);
    parser.AddCommand("rest", QStringLiteral("do nothing"));
    const QString help = ParseWords(parser, {"sing", "--help"}).text;
    QVERIFY2(help.contains(QLatin1String("program sing")), qPrintable(help));
    QVERIFY2(help.contains(QLatin1String("--text WORDS")), qPrintable(help));
    QVERIFY2(!help.contains(QLatin1String("rest")), qPrintable(help));
    const QString whole = ParseWords(parser, {"--help"}).text;
    QVERIFY2(whole.contains(QLatin1String("do nothing")), qPrintable(whole));
    QVERIFY2(!whole.contains(QLatin1String("--text")), qPrintable(whole));
}

void tst_OptionParser::version_isTold()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    const shared::ParsedOptions parsed = ParseWords(parser, {"--version"});
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eShowText);
    QCOMPARE(parsed.text, QStringLiteral("program " AUDIOANALYZER_VERSION "\n"));
}

void tst_OptionParser::commands_areNamed()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    QCOMPARE(parser.getCommands(), QStringList());
    parser.AddCommand("sing", QStringLiteral("make music"));
    parser.AddCommand("rest", QStringLiteral("do nothing"));
    QCOMPARE(parser.getCommands(), (QStringList{QStringLiteral("sing"), QStringLiteral("rest")}));
    QCOMPARE(ParseWords(parser, {"rest"}).command, std::string("rest"));
    QCOMPARE(ParseWords(parser, {}).command, std::string());
}

void tst_OptionParser::mistake_isRefused_data()
{
    QTest::addColumn<QList<QByteArray>>("arguments");
    QTest::addColumn<QString>("word");
    const auto add = [](const char* pName, const QList<QByteArray>& pArguments, const char* pWord) {
        QTest::newRow(pName) << pArguments << QString::fromLatin1(pWord);
    };
    add("unknown option", {"--tempo"}, "--tempo");
    add("a word too many", {"song.wav"}, "song.wav");
    add("no value", {"--text"}, "--text");
    add("empty value", {"--text", ""}, "not empty");
    add("no such file", {"--file", "/nowhere"}, "/nowhere");
    add("too small", {"--number", "0.99"}, "0.99");
    add("too great", {"--number", "9.51"}, "9.51");
    add("not a number", {"--number", "fast"}, "fast");
    add("nan", {"--number", "nan"}, "give a number");
    add("infinite", {"--number", "inf"}, "inf");
    add("not whole", {"--count", "1.5"}, "1.5");
    add("too many", {"--count", "5"}, "5");
    add("alone", {"--twice"}, "--loud");
    add("value for a flag", {"--loud=very"}, "very");
}

void tst_OptionParser::mistake_isRefused()
{
    QFETCH(QList<QByteArray>, arguments);
    QFETCH(QString, word);
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.getOptions(), values);
    const shared::ParsedOptions parsed = ParseWords(parser, arguments);
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eRefuse);
    QVERIFY2(parsed.text.contains(word), qPrintable(parsed.text));
    QVERIFY2(parsed.text.endsWith(QLatin1String("; see program --help")), qPrintable(parsed.text));
}

void tst_OptionParser::mistakeInACommand_pointsToItsHelp()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    AddTo(parser.AddCommand("sing", QStringLiteral("make music")), values);
    const shared::ParsedOptions parsed = ParseWords(parser, {"sing", "--number", "0"});
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eRefuse);
    QVERIFY2(parsed.text.endsWith(QLatin1String("; see program sing --help")),
             qPrintable(parsed.text));
}

void tst_OptionParser::missingWord_isAskedFor()
{
    shared::OptionParser parser(QStringLiteral("Tries."), QStringLiteral("program"));
    OptionValues values;
    shared::OptionSet sing = parser.AddCommand("sing", QStringLiteral("make music"));
    sing.setMissing(QStringLiteral("name the song"));
    sing.AddWord("SONG", values.word, QStringLiteral("the song"));
    shared::ParsedOptions parsed = ParseWords(parser, {"sing"});
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eRefuse);
    QCOMPARE(parsed.text, QStringLiteral("name the song; see program sing --help"));
    parsed = ParseWords(parser, {"sing", "Ännchen"});
    QCOMPARE(parsed.outcome, shared::ParsedOptions::eRead);
    QCOMPARE(QString::fromStdString(values.word), QStringLiteral("Ännchen"));
}

AA_TEST(tst_OptionParser, NoApplication)
#include "tst_OptionParser.moc"
