#pragma once

#include "object/TZoMapObjectBase.h"
#include "object/ZoPixelValues.h"
#include "object/ZoStyleRecords.h"

#include <memory>

// How a surface kind's item answers two of the style setters. Kinds differ
// here on purpose; each states its answer as data:
//   static constexpr SZoSurfaceRefresh kSurfaceRefresh{...};
struct SZoSurfaceRefresh
{
    bool alignmentRelaysLabel;  // SetLabelAlignment relays the label at once
    bool penWidthRebuildsShape; // SetPenWidth rebuilds the shape (the outline grows with the pen)
};

// A style record shared by every object whose style is still the default
// (most of a large display's objects): the first change gives the object a
// copy of its own, and a change to the value already held copies nothing.
template <class Record>
class TZoSharedRecord
{
public:
    TZoSharedRecord() : m_record(Default()) {}

    const Record& operator*() const { return *m_record; }
    const Record* operator->() const { return m_record.get(); }

    template <class T>
    void Set(T Record::*field, const T& value)
    {
        if (!((*m_record).*field == value))
            Edit().*field = value;
    }
    Record& Edit()
    {
        if (m_record.use_count() > 1)
            m_record = std::make_shared<Record>(*m_record);
        return *m_record;
    }

private:
    static const std::shared_ptr<Record>& Default()
    {
        static const std::shared_ptr<Record> record = std::make_shared<Record>();
        return record;
    }

    std::shared_ptr<Record> m_record;
};

// What the surface and line styles share: label position, pen colour and
// pen style, over the kind's style record.
template <class Interface, class Derived, class Item, class StyleRecord>
class TZoStyleObjectBase : public TZoMapObjectBase<Interface, Derived, Item>
{
public:
    void SetLabelPosition(unsigned int position) override
    {
        m_style.Set(&StyleRecord::labelPosition, std::uint32_t(position));
        this->Core().RelayoutNameAndRepaint(true);
    }
    unsigned int GetLabelPosition() const override { return m_style->labelPosition; }
    void SetPenColor(const QColor& color) override
    {
        m_style.Set(&StyleRecord::penColor, color);
        this->Core().Update();
    }
    QColor GetPenColor() const override { return m_style->penColor; }
    float GetPenWidth() const override { return m_style->penWidth; }
    void SetPenStyle(unsigned int style) override
    {
        m_style.Set(&StyleRecord::penStyle, std::uint32_t(style));
        this->Core().Update();
    }
    unsigned int GetPenStyle() const override { return m_style->penStyle; }

    const StyleRecord& Style() const { return *m_style; }

protected:
    TZoSharedRecord<StyleRecord> m_style;
};

// The 17 surface-style operations over a SurfaceStyle record.
template <class Interface, class Derived, class Item>
class TZoSurfaceStyleObject : public TZoStyleObjectBase<Interface, Derived, Item, SurfaceStyle>
{
public:
    void SetLabelAlignment(unsigned int alignment) override
    {
        this->m_style.Set(&SurfaceStyle::labelAlignment, std::uint32_t(alignment));
        if (Derived::kSurfaceRefresh.alignmentRelaysLabel)
            this->Core().RelayoutNameAndRepaint(true);
    }
    unsigned int GetLabelAlignment() const override { return this->m_style->labelAlignment; }
    void SetPenWidth(float width) override
    {
        if (!ZoPlausiblePenWidth(width))
            return;
        this->m_style.Set(&SurfaceStyle::penWidth, width);
        if (Derived::kSurfaceRefresh.penWidthRebuildsShape)
            this->Core().RebuildAndRepaint(true);
        else
            this->Core().Update();
    }
    void SetBrushColor(const QColor& color) override
    {
        this->m_style.Set(&SurfaceStyle::brushColor, color);
        this->Core().Update();
    }
    QColor GetBrushColor() const override { return this->m_style->brushColor; }
    void SetBrushTextureFile(unsigned int brushStyle, const std::string& path) override
    {
        this->m_style.Edit().LoadBrushTextureFile(brushStyle, path, Derived::kLogNames.className);
        this->Core().Update();
    }
    void SetBrushTexture(unsigned int brushStyle, const QPixmap& texture) override
    {
        SurfaceStyle& style = this->m_style.Edit();
        style.brushStyle = brushStyle;
        style.brushTexture = texture;
        this->Core().Update();
    }
    unsigned int GetBrushStyle() const override { return this->m_style->brushStyle; }
    QPixmap GetBrushTexture() const override { return this->m_style->brushTexture; }
    std::string GetBrushTextureFile() const override { return this->m_style->brushTextureFile; }
};

// The 12 line-style operations over a LineStyle record.
template <class Interface, class Derived, class Item>
class TZoLineStyleObject : public TZoStyleObjectBase<Interface, Derived, Item, LineStyle>
{
public:
    void SetPenWidth(float width) override
    {
        if (!ZoPlausiblePenWidth(width))
            return;
        this->m_style.Set(&LineStyle::penWidth, width);
        this->Core().RebuildAndRepaint(true);
    }
    void SetArrowVisible(bool visible) override
    {
        this->m_style.Set(&LineStyle::arrowVisible, visible);
        this->Core().Update();
    }
    bool IsArrowVisible() const override { return this->m_style->arrowVisible; }
    void SetArrowAtEnd(bool atEnd) override
    {
        this->m_style.Set(&LineStyle::arrowAtEnd, atEnd);
        this->Core().Update();
    }
    bool IsArrowAtEnd() const override { return this->m_style->arrowAtEnd; }
};
