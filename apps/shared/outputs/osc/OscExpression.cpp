// SPDX-License-Identifier: MIT
#include <shared/outputs/osc/OscExpression.h>

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cmath>
#include <utility>

namespace shared {

/// Reads an expression from left to right, by recursion.
class OscExpressionParser
{
    Q_DECLARE_TR_FUNCTIONS(OscExpressionParser)

public:
    explicit OscExpressionParser(const QByteArray& pText) : m_text(pText) {}

    bool Read()
    {
        if (m_text.size() > OscExpression::kLongest)
            return _Refuse(tr("it is too long"));
        if (!_ReadSum())
            return false;
        return _Peek() == '\0' || _Refuse(tr("unexpected \"%1\"").arg(QLatin1Char(_Peek())));
    }

    OscExpression result;
    QString reason;

private:
    using E = OscExpression;

    // NOLINTBEGIN(misc-no-recursion): OscExpression::kDeepest bounds it.
    bool _ReadSum()
    {
        if (!_ReadProduct())
            return false;
        for (char sign = _Peek(); sign == '+' || sign == '-'; sign = _Peek()) {
            ++m_place;
            if (!_ReadProduct() || !_Add({sign == '+' ? E::eAdd : E::eSubtract}))
                return false;
        }
        return true;
    }
    bool _ReadProduct()
    {
        if (!_ReadFactor())
            return false;
        for (char sign = _Peek(); sign == '*' || sign == '/'; sign = _Peek()) {
            ++m_place;
            if (!_ReadFactor() || !_Add({sign == '*' ? E::eMultiply : E::eDivide}))
                return false;
        }
        return true;
    }
    bool _ReadFactor()
    {
        if (++m_depth > E::kDeepest)
            return _Refuse(tr("it is nested too deep"));
        const char next = _Peek();
        bool isRead = false;
        if (next == '-') {
            ++m_place;
            isRead = _ReadFactor() && _Add({E::eNegate});
        } else if (next == '(') {
            ++m_place;
            isRead = _ReadSum() && _Take(')');
        } else if (std::isalpha(static_cast<unsigned char>(next)) != 0) {
            isRead = _ReadName();
        } else {
            isRead = _ReadNumber();
        }
        --m_depth;
        return isRead;
    }
    bool _ReadNumber()
    {
        double number = 0.0;
        const char* pEnd = m_text.constData() + m_text.size();
        const auto [pRest, error] = std::from_chars(_Here(), pEnd, number);
        if (error != std::errc() || !std::isfinite(number))
            return _Refuse(_Peek() == '\0' ? tr("it ends too early")
                                           : tr("unexpected \"%1\"").arg(QLatin1Char(_Peek())));
        m_place += int(pRest - _Here());
        return _Add({E::eNumber, number});
    }
    bool _ReadName()
    {
        const int start = m_place;
        while (std::isalpha(static_cast<unsigned char>(*_Here())) != 0)
            ++m_place;
        const QByteArray name = m_text.mid(start, m_place - start);
        const std::pair<const char*, double OscValues::*> values[] = {
            {"beat", &OscValues::beat},
            {"count", &OscValues::count},
            {"bar", &OscValues::bar},
            {"phase", &OscValues::phase},
            {"bpm", &OscValues::bpm},
            {"confidence", &OscValues::confidence},
            {"playing", &OscValues::playing}};
        for (const auto& [word, pValue] : values)
            if (name == word)
                return _Add({E::eValue, 0.0, pValue});
        return _ReadFunction(name);
    }
    bool _ReadFunction(const QByteArray& pName)
    {
        const std::pair<const char*, E::eOperation> functions[] = {{"sqrt", E::eSqrt},
                                                                   {"floor", E::eFloor},
                                                                   {"round", E::eRound},
                                                                   {"min", E::eMin},
                                                                   {"max", E::eMax}};
        for (const auto& [word, operation] : functions) {
            if (pName != word)
                continue;
            const bool hasTwo = operation >= E::eAdd;
            return _Take('(') && _ReadSum() && (!hasTwo || (_Take(',') && _ReadSum())) &&
                   _Take(')') && _Add({operation});
        }
        return _Refuse(tr("\"%1\" is not known").arg(QString::fromLatin1(pName)));
    }

    // NOLINTEND(misc-no-recursion)

    bool _Add(OscExpression::Step pStep)
    {
        if (result.m_steps.size() >= E::kMostSteps)
            return _Refuse(tr("it is too long"));
        result.m_steps.push_back(pStep);
        return true;
    }
    bool _Take(char pCharacter)
    {
        if (_Peek() != pCharacter)
            return _Refuse(tr("\"%1\" is missing").arg(QLatin1Char(pCharacter)));
        ++m_place;
        return true;
    }
    /// The next character that is no blank; 0 at the end.
    char _Peek()
    {
        while (*_Here() == ' ' || *_Here() == '\t')
            ++m_place;
        return *_Here();
    }
    const char* _Here() const { return m_text.constData() + m_place; }
    bool _Refuse(const QString& pReason)
    {
        if (reason.isEmpty())
            reason = pReason;
        return false;
    }

    const QByteArray m_text;
    int m_place = 0;
    int m_depth = 0;
};

std::optional<OscExpression> OscExpression::Parse(const QByteArray& pText, QString& pReason)
{
    // A zero would look like the end.
    OscExpressionParser parser(QByteArray(pText).replace('\0', '?'));
    if (parser.Read())
        return std::move(parser.result);
    pReason = parser.reason;
    return std::nullopt;
}

double OscExpression::Compute(const OscValues& pValues) const
{
    std::array<double, kMostSteps> numbers = {};
    std::size_t count = 0;
    for (const Step& step : m_steps) {
        if (step.operation == eNumber || step.operation == eValue) {
            numbers[count++] = step.operation == eNumber ? step.number : pValues.*step.pValue;
            continue;
        }
        const double last = numbers[count - 1];
        count -= step.operation >= eAdd ? 2 : 1;
        numbers[count] = _Apply(step.operation, numbers[count], last);
        ++count;
    }
    return std::isfinite(numbers[0]) ? numbers[0] : 0.0;
}

double OscExpression::_Apply(eOperation pOperation, double pLeft, double pRight)
{
    switch (pOperation) {
    case eNegate:
        return -pRight;
    case eSqrt:
        return std::sqrt(pRight);
    case eFloor:
        return std::floor(pRight);
    case eRound:
        return std::round(pRight);
    case eAdd:
        return pLeft + pRight;
    case eSubtract:
        return pLeft - pRight;
    case eMultiply:
        return pLeft * pRight;
    case eDivide:
        return pLeft / pRight;
    case eMin:
        return std::min(pLeft, pRight);
    case eMax:
        return std::max(pLeft, pRight);
    case eNumber:
    case eValue:
        break;
    }
    return 0.0;
}

}  // namespace shared
