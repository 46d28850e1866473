// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace shared {

/// What an expression may name.
struct OscValues
{
    double beat = 0.0;        ///< number of the beat
    double count = 1.0;       ///< place of the beat in its bar, from 1
    double bar = 0.0;         ///< number of the bar
    double phase = 0.0;       ///< how much of the beat has passed, [0, 1)
    double bpm = 0.0;         ///< 0 = none yet
    double confidence = 0.0;  ///< 0 to 1
    double playing = 0.0;     ///< 1: the clock runs; 0: it stands
};

/// A number computed from a beat, as a user writes it: "sqrt(bpm / 240) * 100".
///
/// It knows numbers, the names of OscValues, + - * / and parentheses, and sqrt(x), floor(x),
/// round(x), min(x, y), max(x, y).
class OscExpression
{
public:
    static constexpr int kLongest = 200;            ///< bytes
    static constexpr int kDeepest = 16;             ///< parentheses and signs within each other
    static constexpr std::size_t kMostSteps = 100;  ///< numbers, names and operations

    /// None, and pReason in words for people, when it is not understood. [allocates]
    static std::optional<OscExpression> Parse(const QByteArray& pText, QString& pReason);

    /// 0 where there is no finite result. [no allocation]
    double Compute(const OscValues& pValues) const;

private:
    friend class OscExpressionParser;

    /// What a step does with the numbers that were computed last.
    enum eOperation : std::uint8_t
    {
        eNumber,
        eValue,
        eNegate,
        eSqrt,
        eFloor,
        eRound,
        eAdd,  ///< from here on with two of them
        eSubtract,
        eMultiply,
        eDivide,
        eMin,
        eMax
    };
    struct Step
    {
        eOperation operation;
        double number = 0.0;                  ///< of eNumber
        double OscValues::*pValue = nullptr;  ///< of eValue
    };

    static double _Apply(eOperation pOperation, double pLeft, double pRight);

    std::vector<Step> m_steps;  ///< operands first
};

}  // namespace shared
