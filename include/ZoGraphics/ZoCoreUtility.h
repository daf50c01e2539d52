#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QString>
#include <string>

/// @file
/// Helpers of the core library: identifiers, code-page conversion of text and
/// numeric comparisons.
///
/// Module and object ids come from two independent, thread-safe counters;
/// both start at 1 and never repeat within a process. Text crossing the
/// library boundary is std::string in the named code page (the library always
/// passes "GB18030").

/// The next module id: 1, 2, 3 and so on, never repeated within the process.
/// Thread-safe, and independent of GenerateZoObjectID().
ZOGRAPHICS_EXPORT int GenerateZoModuleID();
/// The next object id for map objects and layers: 1, 2, 3 and so on, never
/// repeated within the process. Thread-safe.
ZOGRAPHICS_EXPORT int GenerateZoObjectID();
/// A random (version 4) UUID in its 36-character textual form, lower-case
/// hexadecimal without braces.
ZOGRAPHICS_EXPORT std::string ZoCreateUUID();

/// Decodes text in the named code page ("GB18030" by default, the code page of
/// all text crossing the library boundary). An unknown or null code page
/// falls back to UTF-8, so text is never lost; bytes that are not valid in
/// the code page become replacement characters.
ZOGRAPHICS_EXPORT QString ConvertStdStringToQString(const std::string& text, const char* codePage = "GB18030");
/// Encodes text in the named code page ("GB18030" by default). An unknown or
/// null code page falls back to UTF-8.
ZOGRAPHICS_EXPORT std::string ConvertQStringToStdString(const QString& text, const char* codePage = "GB18030");
/// Decodes a NUL-terminated text as ConvertStdStringToQString() does; a null
/// text gives an empty string.
ZOGRAPHICS_EXPORT QString ConvertCharArrayToQString(const char* text, const char* codePage = "GB18030");

/// Relative equality of floats: |a - b| <= FLT_EPSILON * max(1, |a|, |b|), so
/// an absolute test below 1. NaN equals nothing; infinities equal only
/// themselves.
ZOGRAPHICS_EXPORT bool IsEqual(float a, float b);
/// Relative equality of doubles: |a - b| <= 1e-12 * max(1, |a|, |b|), loose
/// enough for values that went through a few arithmetic steps. NaN equals
/// nothing; infinities equal only themselves.
ZOGRAPHICS_EXPORT bool IsEqual(double a, double b);

/// Brings an angle in degrees into [0, 360); -0 and values that round to 360
/// give 0. A non-finite angle is returned unchanged.
ZOGRAPHICS_EXPORT double NormalizeDegree(double degrees);
