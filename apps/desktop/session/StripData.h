// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

/// Why a beat falls where it does.
enum eBeatKind
{
    eHeardBeat,     ///< the one before it was heard
    eForeseenBeat,  ///< nobody heard the one before it
    eHandBeat       ///< the hand leads, or the tempo is held
};

/// What happened lately, in columns of 50 ms; two minutes of it at most.
///
/// Instants are µs of the system's monotonic clock; a column's number is its beginning over its
/// length.
class StripData
{
public:
    static constexpr std::int64_t kColumn = 50000;  ///< µs
    static constexpr int kColumns = 2400;           ///< two minutes
    static constexpr std::size_t kSayings = 200;    ///< of the newest

    struct Column
    {
        int level = -1;               ///< greatest sample magnitude; negative = no sound came
        float bpm = 0.0F;             ///< of the clock; 0 = it stood
        bool isPlaying = false;       ///< music, as the tracker hears it
        std::vector<quint8> beliefs;  ///< share of each tempo, of 255; empty = nobody asked
    };
    struct Beat
    {
        std::int64_t time;  ///< µs
        eBeatKind kind;
        bool isOne;
    };
    struct Saying
    {
        std::int64_t time;  ///< µs
        QString text;
    };

    /// The columns that are complete: from the first one on, before the end.
    std::int64_t getFirst() const { return m_first; }
    std::int64_t getEnd() const { return m_end; }
    /// Null for one that is not kept, or not complete yet. [valid until the next change]
    const Column* getColumn(std::int64_t pNumber) const;
    const std::deque<Beat>& getBeats() const { return m_beats; }
    const std::deque<Saying>& getSayings() const { return m_sayings; }
    /// How many were ever said.
    quint64 getSaid() const { return m_said; }
    /// BPM, the fastest first; empty before a tracker was asked.
    const std::vector<double>& getTempi() const { return m_tempi; }

    void setTempi(std::vector<double> pTempi) { m_tempi = std::move(pTempi); }
    /// One that is not complete yet, to be filled; null for others. [valid until the next change]
    Column* Fill(std::int64_t pNumber);
    /// All columns before pEnd are complete, the new ones with that tempo; what is too old goes.
    void Complete(std::int64_t pEnd, float pBPM, bool pIsPlaying);
    void AddBeat(const Beat& pBeat);
    /// The same words again are said once only.
    void AddSaying(const Saying& pSaying);

private:
    void _Forget();

    std::int64_t m_first = 0;  ///< number of the first column
    std::int64_t m_end = 0;    ///< number behind the last complete one
    std::deque<Column> m_columns;
    std::deque<Beat> m_beats;
    std::deque<Saying> m_sayings;
    quint64 m_said = 0;
    std::vector<double> m_tempi;
};
