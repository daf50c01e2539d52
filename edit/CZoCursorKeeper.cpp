#include "edit/CZoCursorKeeper.h"

#include <ZoGraphics/IZoMapView.h>
#include <ZoGraphics/ZoCoreUtility.h>

#include <QAbstractScrollArea>
#include <QPixmap>
#include <QPixmapCache>

namespace
{
QWidget* Viewport(IZoMapView* view)
{
    QAbstractScrollArea* area = view ? view->GetScrollArea() : nullptr;
    return area ? area->viewport() : nullptr;
}
} // namespace

void CZoCursorKeeper::Save(IZoMapView* view)
{
    QWidget* viewport = Viewport(view);
    if (!viewport || m_saved)
        return;
    m_cursor = viewport->cursor();
    m_saved = true;
}

namespace
{
QPixmap CachedPicture(const std::string& resource)
{
    // Hovering in and out of handles asks for the same few pictures over and over.
    const QString path = ConvertStdStringToQString(resource);
    QPixmap picture;
    if (!QPixmapCache::find(path, &picture))
    {
        picture = QPixmap(path);
        QPixmapCache::insert(path, picture);
    }
    return picture;
}
} // namespace

void CZoCursorKeeper::Set(IZoMapView* view, const std::string& resource, int hotX, int hotY)
{
    Set(view, QCursor(CachedPicture(resource), hotX, hotY));
}

QCursor CZoCursorKeeper::Picture(const std::string& resource)
{
    return QCursor(CachedPicture(resource), -1, -1);
}

void CZoCursorKeeper::Set(IZoMapView* view, const QCursor& cursor)
{
    if (QWidget* viewport = Viewport(view))
        viewport->setCursor(cursor);
}

void CZoCursorKeeper::Restore(IZoMapView* view)
{
    QWidget* viewport = Viewport(view);
    if (!viewport)
        return;
    viewport->setCursor(m_cursor);
    m_saved = false;
}
