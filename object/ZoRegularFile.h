#pragma once

#include <QByteArray>
#include <QString>

// Where a refusal is logged: "[className::method] reason", or "[method]
// reason" for a free function (className null).
struct SZoLogSite
{
    const char* className;
    const char* method;
};

// Every file a host names is read only when it is a regular file (a link to
// one counts). The test runs before any open: opening a named pipe waits for
// a writer that may never come, and a device such as /dev/zero never ends.
// A missing file fails quietly, as a failed load always has; anything else
// that is not a regular file is logged at the site.
bool ZoCheckRegularFile(const QString& path, const SZoLogSite& site);

// Reads a whole regular file of at most maxBytes bytes. False, with a logged
// text when the file exists, otherwise; contents is then left empty.
bool ZoReadRegularFile(const QString& path, qint64 maxBytes, const SZoLogSite& site, QByteArray* contents);
