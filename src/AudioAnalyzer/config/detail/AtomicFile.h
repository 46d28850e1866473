// SPDX-License-Identifier: MIT
#pragma once

class QByteArray;
class QString;

namespace detail {

/// Puts content in the file at path, whole or not at all.
///
/// Writes a temporary file beside it, flushes that to disk and renames it over the old one, which
/// may be read-only, and whose mode and owner it takes. On false the old file is as it was and no
/// temporary file is left. Those of writers that were killed are removed.
bool writeFileAtomically(const QString& path, const QByteArray& content);

}  // namespace detail
