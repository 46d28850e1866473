// SPDX-License-Identifier: MIT
#include <shared/outputs/midi/detail/NotePlan.h>

#include <QtTest>

#include <apps/shared/outputs/midi/MidiBench.h>
#include <support/TestClass.h>

using shared::MidiNoteSettings;
using shared::detail::NotePlan;

namespace {

QString notesOf(const std::vector<shared::MidiMessage>& pMessages)
{
    QStringList texts;
    for (const auto& message : pMessages)
        texts += midi_bench::bytes(message);
    return texts.join(QLatin1Char(' '));
}

/// Channel 10 is 9 on the wire; notes 36 = 24h, 38 = 26h; velocity 100 = 64h. pPart: a 24th of a
/// beat, of which the plan is told those that it wants.
QString notesAt(NotePlan& pPlan, qint64 pPart)
{
    const int step = 24 / pPlan.getDivision();
    if (pPart % step != 0)
        return {};
    shared::ClockTick tick = midi_bench::tick(pPart);
    tick.number /= step;
    tick.place /= step;
    return notesOf(pPlan.Tick(tick));
}

}  // namespace

class tst_NotePlan : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ticks_areAsFewAsTheLengthNeeds_data();
    void ticks_areAsFewAsTheLengthNeeds();
    void beatAndBar_areNotes_ofTheirLength();
    void noteThatWasNotWanted_isNotPlayed();
    void note_endsBeforeTheNextOne_whateverIsLost();
    void end_endsWhatSounds_once();
    void bytes_areThoseOfTheSettings_data();
    void bytes_areThoseOfTheSettings();
};

void tst_NotePlan::ticks_areAsFewAsTheLengthNeeds_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("division");
    for (const auto& [length, division] :
         {std::pair(1, 24), {5, 24}, {6, 4}, {8, 3}, {9, 8}, {24, 1}})
        QTest::addRow("%d", length) << length << division;
}

void tst_NotePlan::ticks_areAsFewAsTheLengthNeeds()
{
    QFETCH(const int, length);
    QFETCH(const int, division);
    MidiNoteSettings settings;
    settings.length = length;
    NotePlan plan(settings);
    QCOMPARE(plan.getDivision(), division);
    QCOMPARE(notesAt(plan, 24), QStringLiteral("992464"));
    for (int part = 25; part < 24 + length; ++part)
        QCOMPARE(notesAt(plan, part), QString());
    QVERIFY(notesAt(plan, 24 + length).startsWith(QLatin1String("892400")));
}

void tst_NotePlan::beatAndBar_areNotes_ofTheirLength()
{
    NotePlan plan{MidiNoteSettings()};
    QCOMPARE(notesAt(plan, 0), QStringLiteral("992464 992664"));
    for (int tick = 1; tick < 6; ++tick)
        QCOMPARE(notesAt(plan, tick), QString());
    QCOMPARE(notesAt(plan, 6), QStringLiteral("892400 892600"));
    QCOMPARE(notesAt(plan, 7), QString());
    QCOMPARE(notesAt(plan, 24), QStringLiteral("992464"));
    QCOMPARE(notesAt(plan, 30), QStringLiteral("892400"));
}

void tst_NotePlan::noteThatWasNotWanted_isNotPlayed()
{
    MidiNoteSettings settings;
    settings.beatNote = MidiNoteSettings::kNone;
    NotePlan plan(settings);
    QCOMPARE(notesAt(plan, 0), QStringLiteral("992664"));
    QCOMPARE(notesAt(plan, 24), QStringLiteral("892600"));
    settings = MidiNoteSettings();
    settings.barNote = MidiNoteSettings::kNone;
    plan = NotePlan(settings);
    QCOMPARE(notesAt(plan, 0), QStringLiteral("992464"));
    // One note for both is played once.
    settings.barNote = settings.beatNote;
    plan = NotePlan(settings);
    QCOMPARE(notesAt(plan, 0), QStringLiteral("992464"));
}

void tst_NotePlan::note_endsBeforeTheNextOne_whateverIsLost()
{
    NotePlan plan{MidiNoteSettings()};
    notesAt(plan, 24);
    QCOMPARE(notesAt(plan, 48), QStringLiteral("892400 992464"));
    QCOMPARE(notesAt(plan, 60), QStringLiteral("892400"));
    MidiNoteSettings settings;
    settings.length = 24;
    plan = NotePlan(settings);
    notesAt(plan, 24);
    QCOMPARE(notesAt(plan, 47), QString());
    QCOMPARE(notesAt(plan, 48), QStringLiteral("892400 992464"));
}

void tst_NotePlan::end_endsWhatSounds_once()
{
    NotePlan plan{MidiNoteSettings()};
    QCOMPARE(notesOf(plan.End()), QString());
    notesAt(plan, 0);
    QCOMPARE(notesOf(plan.End()), QStringLiteral("892400 892600"));
    QCOMPARE(notesOf(plan.End()), QString());
    QCOMPARE(notesAt(plan, 6), QString());
}

void tst_NotePlan::bytes_areThoseOfTheSettings_data()
{
    QTest::addColumn<int>("channel");
    QTest::addColumn<int>("note");
    QTest::addColumn<int>("velocity");
    QTest::addColumn<QString>("on");
    QTest::addColumn<QString>("off");
    QTest::newRow("least") << 1 << 0 << 1 << "900001"
                           << "800000";
    QTest::newRow("most") << 16 << 127 << 127 << "9f7f7f"
                          << "8f7f00";
}

void tst_NotePlan::bytes_areThoseOfTheSettings()
{
    QFETCH(const int, channel);
    QFETCH(const int, note);
    QFETCH(const int, velocity);
    QFETCH(const QString, on);
    QFETCH(const QString, off);
    NotePlan plan(MidiNoteSettings{channel, note, MidiNoteSettings::kNone, velocity, 1});
    QCOMPARE(notesAt(plan, 24), on);
    QCOMPARE(notesAt(plan, 25), off);
}

AA_TEST(tst_NotePlan, NoApplication)

#include "tst_NotePlan.moc"
