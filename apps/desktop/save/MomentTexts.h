// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <cstdint>

class Configuration;
class StripData;

/// What is written down of the last two minutes, for people and programs.
namespace moment {

/// The strip as a JSON object; times are seconds, and those of the strip count from pNow, µs of the
/// monotonic clock, into the past. Documented in docs/beat-monitor.md.
QByteArray makeStripJson(const StripData& pData, std::int64_t pNow);
/// A line each, with the time of day.
QByteArray makeLog(const StripData& pData);
/// The settings of the analysis as a JSON object, by the names that people type.
QByteArray makeSettingsJson(const Configuration& pConfiguration, bool pIsAutomatic, double pOffset);
/// An INI file without the values of keys that sound like a secret, and without what stands before
/// the @ of an address.
QByteArray withoutSecrets(const QByteArray& pIni);

}  // namespace moment
