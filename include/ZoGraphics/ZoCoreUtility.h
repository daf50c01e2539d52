#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

#include <QString>
#include <string>

// Identifiers. Module and object ids come from two independent, thread-safe
// counters; both start at 1 and never repeat within a process.
ZOGRAPHICS_EXPORT int GenerateZoModuleID();
ZOGRAPHICS_EXPORT int GenerateZoObjectID();
// A random (version 4) UUID in its 36-character textual form.
ZOGRAPHICS_EXPORT std::string ZoCreateUUID();

// Text crossing the library boundary is std::string in the named code page
// (the library always passes "GB18030"). An unknown code page falls back to
// UTF-8 so that text is never lost.
ZOGRAPHICS_EXPORT QString ConvertStdStringToQString(const std::string& text, const char* codePage = "GB18030");
ZOGRAPHICS_EXPORT std::string ConvertQStringToStdString(const QString& text, const char* codePage = "GB18030");
ZOGRAPHICS_EXPORT QString ConvertCharArrayToQString(const char* text, const char* codePage = "GB18030");

// Relative equality: values are equal when they agree to about the type's
// precision (an absolute test near zero).
ZOGRAPHICS_EXPORT bool IsEqual(float a, float b);
ZOGRAPHICS_EXPORT bool IsEqual(double a, double b);

// Brings an angle in degrees into [0, 360).
ZOGRAPHICS_EXPORT double NormalizeDegree(double degrees);
