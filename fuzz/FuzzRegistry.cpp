// The module's registries against a plain model: objects and layers created,
// renamed, looked up, stacked, switched and destroyed in any order, the
// module torn down and made again.
#include "fuzz/ZoFuzz.h"

#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoGraphics.h>

#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <memory>

namespace
{
// Objects keep their names as text, so a name that is not valid GB18030
// comes back (and is looked up) as it reads after a round trip.
std::string AsStored(const std::string& name)
{
    return ConvertQStringToStdString(ConvertStdStringToQString(name, ZoGraphicsConstantNS::STR_CODE_PAGE),
                                     ZoGraphicsConstantNS::STR_CODE_PAGE);
}

const char* const kNames[] = {"a", "b", "a", "", "名字", "\xff\xfe", "Zo.DefaultGraphicsLayer"};
constexpr int kNameCount = sizeof(kNames) / sizeof(kNames[0]);

// The kinds made here, with their typed lookups.
enum EKind { Dot, Circle, Rectangle, Tile, Polyline, Text, Pie, MultiDot, KindCount };

struct SObject
{
    IZoGraphicsMapObject* object = nullptr;
    int id = 0;
    std::string name;
    EKind kind = Dot;
    int layer = -1; // index into the model's layers; -1 for none
    bool alive = true;
};

struct SLayer
{
    IZoGraphicsMapLayer* layer = nullptr;
    std::string name;
    bool alive = true;
};

class CRegistryRun
{
public:
    explicit CRegistryRun(CZoMapModule& map) : m_map(map) { Start(); }
    ~CRegistryRun()
    {
        if (m_module)
            m_module->Unintialise();
    }
    CRegistryRun(const CRegistryRun&) = delete;
    CRegistryRun& operator=(const CRegistryRun&) = delete;

    void Step(CZoFuzzInput& in)
    {
        switch (in.Int(0, 12))
        {
        case 0:
        case 1: Create(in); break;
        case 2: DestroyObject(in); break;
        case 3: Rename(in); break;
        case 4: CreateLayer(in); break;
        case 5: DestroyLayer(in); break;
        case 6: SwitchLayer(in); break;
        case 7: Stack(in); break;
        case 8: DestroyAllOnLayer(in); break;
        case 9: Zoom(in); break;
        case 10: Paint(); break;
        case 11:
            if (in.Int(0, 7) == 0)
                Restart();
            break;
        default: ObjectSwitch(in); break;
        }
        Compare();
    }

private:
    void Start()
    {
        m_module = std::make_unique<CZoGraphicsModule>();
        ZO_FUZZ_CHECK(m_module->Initialise("fuzz", &m_map), "initialise");
        m_layers = {{m_module->GetDeafultGraphicsLayer(), "Zo.DefaultGraphicsLayer", true}};
        m_objects.clear();
    }

    void Restart()
    {
        m_module->Unintialise();
        m_module.reset();
        Start();
    }

    template <typename T>
    T& Pick(CZoFuzzInput& in, std::vector<T>& all)
    {
        return all[static_cast<std::size_t>(in.Int(0, static_cast<int>(all.size()) - 1))];
    }

    IZoGraphicsMapObject* Make(EKind kind, const std::string& name, IZoGraphicsMapLayer* layer)
    {
        switch (kind)
        {
        case Dot: return m_module->CreateDotMapObject(name, layer);
        case Circle: return m_module->CreateCircleMapObject(name, layer);
        case Rectangle: return m_module->CreateRectangleMapObject(name, layer);
        case Tile: return m_module->CreateTileMapObject(name, layer);
        case Polyline: return m_module->CreatePolylineMapObject(name, layer);
        case Text: return m_module->CreateTextMapObject(name, layer);
        case Pie: return m_module->CreatePieMapObject(name, layer);
        default: return m_module->CreateMultiDotMapObject(name, layer);
        }
    }

    IZoGraphicsMapObject* TypedLookup(EKind kind, const std::string& name) const
    {
        switch (kind)
        {
        case Dot: return m_module->LookupDotMapObject(name);
        case Circle: return m_module->LookupCircleMapObject(name);
        case Rectangle:
        case Tile: return m_module->LookupRectangleMapObject(name);
        case Polyline: return m_module->LookupPolylineMapObject(name);
        case Text: return m_module->LookupTextMapObject(name);
        case Pie: return m_module->LookupBowMapObject(name);
        default: return m_module->LookupMultiDotMapObject(name);
        }
    }

    static bool SameLookup(EKind asked, EKind kind)
    {
        return asked == kind || ((asked == Rectangle || asked == Tile) && (kind == Rectangle || kind == Tile));
    }

    void Create(CZoFuzzInput& in)
    {
        const EKind kind = static_cast<EKind>(in.Int(0, KindCount - 1));
        const std::string name = kNames[in.Int(0, kNameCount - 1)];
        // Null asks for the default layer, which may be gone.
        int layer = in.Bool() ? -1 : in.Int(0, static_cast<int>(m_layers.size()) - 1);
        if (layer >= 0 && !m_layers[static_cast<std::size_t>(layer)].alive)
            layer = -1;
        IZoGraphicsMapObject* object =
            Make(kind, name, layer >= 0 ? m_layers[static_cast<std::size_t>(layer)].layer : nullptr);
        if (layer < 0)
            layer = m_layers.front().alive ? 0 : -1;
        if (layer < 0)
        {
            ZO_FUZZ_CHECK(object == nullptr, "made without a layer");
            return;
        }
        ZO_FUZZ_CHECK(object != nullptr, "creator failed");
        ZO_FUZZ_CHECK(m_objects.empty() || object->GetObjectID() > m_objects.back().id, "ids rise");
        m_objects.push_back({object, object->GetObjectID(), AsStored(name), kind, layer, true});
    }

    SObject* LiveObject(CZoFuzzInput& in)
    {
        if (m_objects.empty())
            return nullptr;
        SObject& o = Pick(in, m_objects);
        return o.alive ? &o : nullptr;
    }

    void DestroyObject(CZoFuzzInput& in)
    {
        if (in.Int(0, 15) == 0)
            return m_module->DestroyGraphicsMapObject(nullptr);
        if (SObject* o = LiveObject(in))
        {
            m_module->DestroyGraphicsMapObject(o->object);
            o->alive = false;
        }
    }

    void Rename(CZoFuzzInput& in)
    {
        if (SObject* o = LiveObject(in))
        {
            const std::string name = kNames[in.Int(0, kNameCount - 1)];
            o->object->SetName(name);
            o->name = AsStored(name);
        }
    }

    void CreateLayer(CZoFuzzInput& in)
    {
        const std::string name = kNames[in.Int(0, kNameCount - 1)];
        IZoGraphicsMapLayer* layer = m_module->CreateGraphicsLayer(name);
        ZO_FUZZ_CHECK(layer != nullptr, "layer creator failed");
        m_layers.push_back({layer, name, true});
    }

    // Objects on a destroyed layer stay registered, without a layer.
    void DestroyLayer(CZoFuzzInput& in)
    {
        if (in.Int(0, 15) == 0)
            return m_module->DestroyGraphicsLayer(nullptr);
        const int index = in.Int(0, static_cast<int>(m_layers.size()) - 1);
        SLayer& layer = m_layers[static_cast<std::size_t>(index)];
        if (!layer.alive)
            return;
        m_module->DestroyGraphicsLayer(layer.layer);
        layer.alive = false;
        for (SObject& o : m_objects)
            if (o.layer == index)
                o.layer = -1;
    }

    void DestroyAllOnLayer(CZoFuzzInput& in)
    {
        const int index = in.Int(0, static_cast<int>(m_layers.size()) - 1);
        SLayer& layer = m_layers[static_cast<std::size_t>(index)];
        if (!layer.alive)
            return;
        layer.layer->DestroyAllMapObjects();
        for (SObject& o : m_objects)
            if (o.alive && o.layer == index)
                o.alive = false;
    }

    void SwitchLayer(CZoFuzzInput& in)
    {
        SLayer& layer = Pick(in, m_layers);
        if (!layer.alive)
            return;
        IZoGraphicsMapLayer* l = layer.layer;
        switch (in.Int(0, 6))
        {
        case 0: l->SetVisible(in.Bool()); break;
        case 1: l->SetMinLodLevel(in.Int(-3, 25)); break;
        case 2: l->SetMaxLodLevel(in.Int(-3, 25)); break;
        case 3: l->SetNameVisible(in.Bool()); break;
        case 4: l->SetZValue(in.Int(-1000, 1000)); break;
        case 5: l->SetSecondShapeCache(in.Bool()); break;
        default: l->SetLevelLimit(in.Int(-3, 25)); break;
        }
    }

    void ObjectSwitch(CZoFuzzInput& in)
    {
        SObject* o = LiveObject(in);
        if (!o)
            return;
        switch (in.Int(0, 5))
        {
        case 0: o->object->SetVisible(in.Bool()); break;
        case 1: o->object->SetNameVisible(in.Bool()); break;
        case 2: o->object->SetZValue(in.Int(-1000, 1000)); break;
        case 3: o->object->SetMinLodLevel(in.Int(-3, 25)); break;
        case 4: o->object->RemoveFromScene(); break;
        default: o->object->AddToScene(); break;
        }
    }

    void Stack(CZoFuzzInput& in)
    {
        SObject* o = LiveObject(in);
        std::vector<int> ids;
        for (int n = in.Int(0, 4); n > 0; --n)
            ids.push_back(m_objects.empty() || in.Int(0, 3) == 0 ? in.Int(-2, 100000)
                                                                 : Pick(in, m_objects).id);
        const std::vector<int>& live = ids; // destroyed ones included: they must be skipped
        IZoGraphicsMapObject* object = o ? o->object : nullptr;
        switch (in.Int(0, 3))
        {
        case 0: m_module->StackedTop(object, live); break;
        case 1: m_module->StackedUpper(object, live); break;
        case 2: m_module->StackedLower(object, live); break;
        default: m_module->StackedBottom(object, live); break;
        }
    }

    void Zoom(CZoFuzzInput& in)
    {
        const double level = in.Plain(0.0, 21.0);
        const double x = in.Plain(-180, 180);
        const double y = in.Plain(-85, 85);
        m_map.SetZoomAround(level, x, y);
    }

    void Paint()
    {
        QImage image(64, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        m_map.GetScene()->render(&painter, QRectF(image.rect()), QRectF(-400, -300, 800, 600));
    }

    // The registries as the model says they must be.
    void Compare() const
    {
        for (const char* name : kNames)
        {
            const SObject* first = nullptr;
            for (const SObject& o : m_objects)
                if (o.alive && o.name == name)
                {
                    first = &o;
                    break;
                }
            ZO_FUZZ_CHECK(m_module->LookupGraphicObject(name) == (first ? first->object : nullptr), name);
            for (int k = 0; k < KindCount; ++k)
            {
                const SObject* typed = nullptr;
                for (const SObject& o : m_objects)
                    if (o.alive && o.name == name && SameLookup(static_cast<EKind>(k), o.kind))
                    {
                        typed = &o;
                        break;
                    }
                ZO_FUZZ_CHECK(TypedLookup(static_cast<EKind>(k), name) == (typed ? typed->object : nullptr),
                              std::string(name) + " kind " + std::to_string(k));
            }
            const SLayer* layer = nullptr;
            for (const SLayer& l : m_layers)
                if (l.alive && l.name == name)
                {
                    layer = &l;
                    break;
                }
            ZO_FUZZ_CHECK(m_module->LookupGraphicsLayer(name) == (layer ? layer->layer : nullptr), name);
        }
        for (const SObject& o : m_objects)
        {
            ZO_FUZZ_CHECK(m_module->LookupGraphicObject(o.id) == (o.alive ? o.object : nullptr), std::to_string(o.id));
            if (!o.alive)
                continue;
            IZoGraphicsMapLayer* expected = o.layer >= 0 ? m_layers[static_cast<std::size_t>(o.layer)].layer : nullptr;
            ZO_FUZZ_CHECK(o.object->GetGraphicsMapLayer() == expected, "layer of " + std::to_string(o.id));
            ZO_FUZZ_CHECK(o.object->GetName() == o.name, "name of " + std::to_string(o.id));
        }
        for (std::size_t l = 0; l < m_layers.size(); ++l)
        {
            if (!m_layers[l].alive)
                continue;
            int count = 0;
            for (const SObject& o : m_objects)
                count += o.alive && o.layer == static_cast<int>(l);
            ZO_FUZZ_CHECK(m_layers[l].layer->GetMapObjectCount() == count, "count of layer " + std::to_string(l));
        }
        ZO_FUZZ_CHECK(m_module->GetDeafultGraphicsLayer() == (m_layers.front().alive ? m_layers.front().layer : nullptr),
                      "default layer");
    }

    CZoMapModule& m_map;
    std::unique_ptr<CZoGraphicsModule> m_module;
    std::vector<SObject> m_objects;
    std::vector<SLayer> m_layers;
};
} // namespace

int ZoFuzzRegistry(const std::uint8_t* data, std::size_t size)
{
    ZoFuzzEnsureApplication();
    CZoQuietLog quiet;
    CZoFuzzInput in(data, size);
    CZoMapModule map;
    map.SetZoomAround(3.0, 0.0, 0.0);
    CRegistryRun run(map);
    for (int step = 0; step < 400 && !in.Empty(); ++step)
        run.Step(in);
    return 0;
}
