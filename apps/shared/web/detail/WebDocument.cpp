// SPDX-License-Identifier: MIT
#include <shared/web/detail/WebDocument.h>

#include <QFile>
#include <QString>

/// Outside of any namespace, as the macro demands.
static void openWebResources()
{
    Q_INIT_RESOURCE(page);
}

namespace shared::detail {

namespace {

QByteArray ReadPart(const char* pName)
{
    QFile file(QStringLiteral(":/web/") + QLatin1String(pName));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

QByteArray readWebDocument()
{
    openWebResources();
    QByteArray page = ReadPart("page.html");
    for (const char* part : {"page.css", "texts.json", "page.js"})
        page.replace('@' + QByteArray(part) + '@', '\n' + ReadPart(part));
    return page;
}

}  // namespace shared::detail
