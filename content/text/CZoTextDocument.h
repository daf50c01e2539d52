#pragma once

#include <QTextDocument>

// The document of a text object. Qt would read what an HTML text refers to
// (images, style sheets) straight from the file system, whatever the file
// and however large the picture; here every resource goes through the
// library's regular-file reader and its pictures through the capped decoder.
class CZoTextDocument final : public QTextDocument
{
public:
    explicit CZoTextDocument(QObject* parent);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};
