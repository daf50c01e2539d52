#include "support/RenderItem.h"
#include "content/OnCanvas.h"
#include "support/KindFixture.h"
#include "support/ScratchFiles.h"
#include "content/text/CZoTextMapObject.h"
#include <ZoGraphics/ZoCoreUtility.h>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>

using Messages = std::vector<std::string>;

// Map text is drawn at the heaviest weight there is: 99 on Qt 5's scale,
// 1000 on Qt 6's.
constexpr int kHeaviestWeight = QT_VERSION_MAJOR >= 6 ? 1000 : 99;

class Text : public KindFixture<TextKind>
{
protected:
    QGraphicsTextItem* Item() const { return static_cast<QGraphicsTextItem*>(object->GetQtItem()); }
    // The character format in force at a document position.
    QTextCharFormat FormatAt(int position) const
    {
        QTextCursor cursor(Item()->document());
        cursor.setPosition(position);
        return cursor.charFormat();
    }
    void Type(const QString& keys) // at the end
    {
        QTextCursor cursor = Item()->textCursor();
        cursor.movePosition(QTextCursor::End);
        Item()->setTextCursor(cursor);
        for (const QChar c : keys)
        {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
            map.Scene()->sendEvent(Item(), &press);
        }
    }
};

TEST_F(Text, TypedKeysFlowBackInPlainAndHtmlMode)
{
    object->SetText("ab");
    object->SetInteractive(true);
    object->EnableTextInteraction(true);
    ASSERT_TRUE(object->IsTextInteractionEnabled());
    Type(QStringLiteral("cd"));
    EXPECT_EQ(object->GetText(), "abcd");
    EXPECT_EQ(FormatAt(4).intProperty(QTextFormat::FontWeight), kHeaviestWeight); // the look at once
    // Clicks on an editable text are recorded and go on to the view.
    QGraphicsSceneMouseEvent press(QEvent::GraphicsSceneMousePress);
    press.setButton(Qt::LeftButton);
    press.accept();
    map.Scene()->sendEvent(Item(), &press);
    EXPECT_FALSE(press.isAccepted());
    EXPECT_EQ(map.GetEventObject()->property("Scene_MousePress").toList(), QVariantList{object->GetObjectID()});
    object->SetHtml("<b>x</b>");
    Type(QString::fromUtf8("长"));
    EXPECT_NE(object->GetHtml().find(Gb18030(QString::fromUtf8("x长"))), std::string::npos);
    // The stored text is the edited one: without the item it is what is left.
    object->EnableTextInteraction(false);
    EXPECT_FALSE(object->IsTextInteractionEnabled() || Item()->flags().testFlag(QGraphicsItem::ItemIsFocusable));
    object->Unintialise();
    EXPECT_NE(object->GetHtml().find(Gb18030(QString::fromUtf8("x长"))), std::string::npos);
    EXPECT_EQ(object->GetText(), "");
}

TEST_F(Text, InteractionNeedsAPresentedVisibleItem)
{
    object->SetVisible(false);
    object->EnableTextInteraction(true);
    object->SetVisible(true);
    object->RemoveFromScene();
    object->EnableTextInteraction(true);
    EXPECT_FALSE(object->IsTextInteractionEnabled());
    layer->SetAutoAdd(false);
    module.CreateTextMapObject("loose", layer)->EnableTextInteraction(true);
    EXPECT_EQ(log.Messages(), (Messages{"[CZoTextMapObject::EnableTextInteraction] 未呈现或不可见",
                                        "[CZoTextMapObject::EnableTextInteraction] 未呈现或不可见",
                                        "[CZoTextMapObject::EnableTextInteraction] Qt-Item不存在"}));
}

namespace
{
// Outlined text in a framed, tinted box: what the reference shows.
void StyleForPainting(IZoTextMapObject* object)
{
    object->SetFont(QFont(QStringLiteral("DejaVu Sans"), 18));
    object->SetOutlineWidth(1.0);
    object->SetBackgroundColor(QColor(220, 230, 255));
    object->SetBorderWidth(2.0);
    object->SetBorderColor(QColor(40, 60, 160));
    object->SetPadding(3.0);
    object->SetText("Zo map");
}
} // namespace

TEST_F(Text, OutlinedTextMatchesItsReferenceOnTheSceneAndOnACanvas)
{
    StyleForPainting(object);
    EXPECT_EQ(CompareWithReference(RenderItemAt(Item(), 160, 60, QPointF(8, 8)), QStringLiteral("text_outline"), 16, 24),
              QString());
    EXPECT_GT(Item()->boundingRect().width(), 40.0); // a scene draws only what this covers
    layer->SetAutoAdd(false);
    IZoTextMapObject* loose = module.CreateTextMapObject("loose", layer);
    StyleForPainting(loose);
    loose->SetHtml("Zo map"); // the look survives new text
    // Web Mercator level 0: (0, 0) is pixel (128, 128).
    EXPECT_EQ(CompareWithReference(OnCanvas(loose, 0, QRect(120, 120, 160, 60)), QStringLiteral("text_outline"), 16, 24),
              QString());
}
