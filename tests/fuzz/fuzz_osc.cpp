// SPDX-License-Identifier: MIT
#include <shared/outputs/kinds/OutputKinds.h>
#include <shared/outputs/osc/OscTemplate.h>

#include <cmath>
#include <cstddef>
#include <cstdint>

// Fuzz target of what --osc takes: any text gives a receiver or a reason, and whatever it says of
// beats has finite values.

namespace {

void require(bool pIsGood, const char* pWhat)
{
    if (!pIsGood)
        qFatal("%s", pWhat);
}

void tryValues(const shared::OscTemplate& pTemplate)
{
    for (const shared::OscRule& rule : pTemplate.rules) {
        require(rule.values.size() == std::size_t(rule.types.size()), "values and types differ");
        require(pTemplate.division % rule.ticks == 0, "ticks do not fit");
        for (const shared::OscExpression& value : rule.values)
            for (const double number : {0.0, -1.0, 0.25, 120.0, 1e300}) {
                const shared::OscValues values = {
                    number, number, number, number, number, number, number};
                require(std::isfinite(value.Compute(values)), "a value is not finite");
            }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    StoredOutput output;
    output.kind = QStringLiteral("osc");
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    shared::readOutputPlace(text, output);
    QString reason;
    const auto pReceiver = shared::makeReceiver(output.kind, output.address, output.preset, reason);
    require((pReceiver == nullptr) != reason.isEmpty(), "neither a receiver nor a reason, or both");
    QString refusal;
    const auto messages = shared::OscTemplate::Parse(output.preset, refusal);
    require(messages.has_value() == refusal.isEmpty(), "neither messages nor a reason, or both");
    if (messages)
        tryValues(*messages);
    return 0;
}
