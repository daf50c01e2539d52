#include "content/text/CTextItemQtImpl.h"

#include "content/text/CZoTextDocument.h"
#include "content/text/CZoTextMapObject.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <QTextDocument>
#include <QWidget>

CTextItemQtImpl::CTextItemQtImpl(CZoTextMapObject* owner) : TZoGraphicsItem(owner)
{
    // Owned by the item, as Qt's own document would be.
    setDocument(new CZoTextDocument(this));
    QTextDocument* doc = document();
    connect(doc, SIGNAL(cursorPositionChanged(const QTextCursor&)), this, SLOT(OnCursorPosChanged()),
            Qt::UniqueConnection);
    connect(doc, SIGNAL(contentsChanged()), this, SLOT(OnContentsChanged()));
}

CTextItemQtImpl::~CTextItemQtImpl()
{
    QTextDocument* doc = document();
    disconnect(doc, SIGNAL(cursorPositionChanged(const QTextCursor&)), this, SLOT(OnCursorPosChanged()));
    disconnect(doc, SIGNAL(contentsChanged()), this, SLOT(OnContentsChanged()));
}

QRectF CTextItemQtImpl::boundingRect() const
{
    return m_owner && m_owner->Core().IsSuppressed() ? QRectF() : QGraphicsTextItem::boundingRect();
}

QPainterPath CTextItemQtImpl::shape() const
{
    return m_owner && m_owner->Core().IsSuppressed() ? QPainterPath() : QGraphicsTextItem::shape();
}

void CTextItemQtImpl::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget)
{
    if (m_owner && m_owner->Core().IsSuppressed())
        return;
    if (textInteractionFlags() == Qt::TextEditorInteraction)
    {
        // While editing, the edit frame always shows, selected or not.
        QStyleOptionGraphicsItem editing;
        if (widget)
            editing.initFrom(widget);
        editing.state = QStyle::State_Selected;
        QGraphicsTextItem::paint(painter, &editing, widget);
        return;
    }
    if (!option)
    {
        const QStyleOptionGraphicsItem plain;
        QGraphicsTextItem::paint(painter, &plain, widget);
        return;
    }
    QGraphicsTextItem::paint(painter, option, widget);
}

void CTextItemQtImpl::PaintOnCanvas(QPainter* painter, int)
{
    if (m_owner && m_owner->GetQtItem() != this)
    {
        m_owner->LoadDocument(*this);
        m_owner->ApplyFrameFormat(*this);
        m_owner->ApplyCharFormat(*this);
    }
    painter->save();
    painter->rotate(m_owner ? m_owner->GetRotateAngle() : 0.0);
    const QStyleOptionGraphicsItem plain;
    QGraphicsTextItem::paint(painter, &plain, nullptr);
    painter->restore();
}

void CTextItemQtImpl::OnCursorPosChanged()
{
    if (!m_owner || m_applyingFormat)
        return;
    m_applyingFormat = true;
    m_owner->ApplyCharFormat(*this);
    m_applyingFormat = false;
}

void CTextItemQtImpl::OnContentsChanged()
{
    // Formatting is not an edit; loading the document is reported once done.
    if (m_owner && !m_applyingFormat && m_owner->GetQtItem() == this)
        m_owner->TakeDocumentText(*this);
}

// The generated meta-object code needs the complete owner class.
#include "moc_CTextItemQtImpl.cpp"
