#include "support/RenderItem.h"
#include "support/KindFixture.h"
#include "support/ScratchFiles.h"
#include "content/text/CZoTextMapObject.h"
#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoTileModel.h>
#include <QGraphicsSceneMouseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>

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
    QTextFrameFormat Frame() const { return Item()->document()->rootFrame()->frameFormat(); }
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

// The look is kept in the document's formats, and survives the text being
// replaced, plain or HTML.
TEST_F(Text, LookLivesInTheDocumentAndSurvivesNewText)
{
    object->SetFont(QFont(QStringLiteral("DejaVu Sans"), 20));
    object->SetTextColor(QColor(10, 20, 30));
    object->SetOutlineColor(QColor(200, 100, 0));
    object->SetOutlineWidth(2.5);
    object->SetPadding(4.0);
    object->SetBorderWidth(1.5);
    object->SetBorderColor(QColor(0, 0, 255));
    object->SetBackgroundColor(QColor(255, 255, 0, 128));
    object->SetText(Gb18030(QString::fromUtf8("北京\nBeijing")));
    object->SetHtml("<p>one <i>two</i></p>");
    for (int position : {1, 5})
    {
        const QTextCharFormat f = FormatAt(position);
        EXPECT_EQ(QString::asprintf("%d %g %s %g %s", f.intProperty(QTextFormat::FontWeight), f.fontPointSize(),
                                    qPrintable(f.textOutline().color().name()), f.textOutline().widthF(),
                                    qPrintable(f.foreground().color().name())),
                  QStringLiteral("%1 20 #c86400 2.5 #0a141e").arg(kHeaviestWeight));
    }
    EXPECT_EQ(QString::asprintf("%g %g %s %s", Frame().padding(), Frame().border(),
                                qPrintable(Frame().borderBrush().color().name()),
                                qPrintable(Frame().background().color().name(QColor::HexArgb))),
              QStringLiteral("4 1.5 #0000ff #80ffff00"));
    object->SetOutlineWidth(0.0);
    EXPECT_EQ(FormatAt(1).textOutline().style(), Qt::NoPen);
}

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
    EXPECT_FALSE(object->IsTextInteractionEnabled());
    EXPECT_FALSE(Item()->flags().testFlag(QGraphicsItem::ItemIsFocusable));
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

// Drawn by the item, or on a canvas through a temporary document.
TEST_F(Text, OutlinedTextMatchesItsReferenceOnTheSceneAndOnACanvas)
{
    StyleForPainting(object);
    EXPECT_EQ(CompareWithReference(RenderItemAt(Item(), 160, 60, QPointF(8, 8)), QStringLiteral("text_outline"), 16, 24),
              QString());
    layer->SetAutoAdd(false);
    IZoTextMapObject* loose = module.CreateTextMapObject("loose", layer);
    StyleForPainting(loose);
    QImage canvas = BlankCanvas(256, 256);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-120, -120); // Web Mercator level 0: (0, 0) is pixel (128, 128)
    loose->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    EXPECT_EQ(loose->GetQtItem(), nullptr);
    EXPECT_EQ(CompareWithReference(canvas.copy(0, 0, 160, 60), QStringLiteral("text_outline"), 16, 24), QString());
}
