#pragma once

#include <ZoGraphics/ZoCoreUtility.h>

#include <QFile>
#include <QTemporaryDir>
#include <string>

// Text as the library takes it: GB18030.
inline std::string Gb18030(const QString& text) { return ConvertQStringToStdString(text, "GB18030"); }

// A scratch folder for the files a test loads, removed with the object.
class ScratchFiles
{
public:
    // Writes the bytes to a file of the folder; returns its path in GB18030.
    std::string Write(const QString& name, const QByteArray& bytes)
    {
        QFile file(m_dir.filePath(name));
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes);
        return Path(name);
    }
    // The GB18030 path of a file of the folder, written or not.
    std::string Path(const QString& name) const { return Gb18030(m_dir.filePath(name)); }
    QString FilePath(const QString& name) const { return m_dir.filePath(name); }

private:
    QTemporaryDir m_dir;
};
