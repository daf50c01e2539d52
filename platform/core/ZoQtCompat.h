#pragma once

// The few Qt calls whose spelling differs between Qt 5.15 and Qt 6, each
// under one name that compiles against both, so that no block of the library
// is written twice. Each picks the call that costs the same as before under
// Qt 5.

#include <QtGlobal>
#include <QString>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
#include <QStringView>
#else
#include <QStringRef>
#endif

namespace ZoQtCompat
{
// The heaviest weight a font can ask for: Qt 5 weighs fonts from 0 to 99,
// Qt 6 from 1 to 1000 (so Qt 5's 99 would be a hairline under Qt 6).
constexpr int kHeaviestFontWeight = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) ? 1000 : 99;

// The text from position on, without a copy (QStringRef went away in Qt 6;
// QStringView has toInt() only from Qt 6 on).
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
inline QStringView MidView(const QString& text, qsizetype position)
{
    return QStringView(text).mid(position);
}
#else
inline QStringRef MidView(const QString& text, int position)
{
    return text.midRef(position);
}
#endif
} // namespace ZoQtCompat
