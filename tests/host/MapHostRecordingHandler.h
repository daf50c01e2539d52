#pragma once

#include <ZoGraphics/IZoMapEventHandler.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

// Writes every call it gets as "Operation args" into its own list and
// "name:Operation" into an optional shared journal; returns true for the
// operations listed in consume.
class MapHostRecordingHandler : public IZoMapEventHandler
{
public:
    explicit MapHostRecordingHandler(std::string name, std::vector<std::string>* journal = nullptr)
        : m_name(std::move(name)), m_journal(journal)
    {
    }
    bool OnMousePress(IZoMapView*, int x, int y, int id) override { return At("OnMousePress", x, y, id); }
    bool OnMouseDoubleClick(IZoMapView*, int x, int y, int id) override { return At("OnMouseDoubleClick", x, y, id); }
    bool OnMouseMove(IZoMapView*, int x, int y, int id) override { return At("OnMouseMove", x, y, id); }
    bool OnMouseRelease(IZoMapView*, int x, int y, int id) override { return At("OnMouseRelease", x, y, id); }
    bool OnHoverEnter(IZoMapView*, int x, int y, int id) override { return At("OnHoverEnter", x, y, id); }
    bool OnHoverLeave(IZoMapView*, int x, int y, int id) override { return At("OnHoverLeave", x, y, id); }
    bool OnKeyPress(IZoMapView*, int key) override { return Record("OnKeyPress", " " + std::to_string(key)); }
    bool OnLodLevelChanged(int lod) override { return Record("OnLodLevelChanged", " " + std::to_string(lod)); }
    bool OnViewScaleChanged(double scale) override { return Record("OnViewScaleChanged", " " + std::to_string(scale)); }
    bool OnViewChanged() override { return Record("OnViewChanged", ""); }
    bool OnViewMoved() override { return Record("OnViewMoved", ""); }

    // Calls of one operation (or operations starting so).
    std::vector<std::string> CallsOf(const std::string& operation) const
    {
        std::vector<std::string> found;
        for (const std::string& call : calls)
            if (call.compare(0, operation.size(), operation) == 0)
                found.push_back(call);
        return found;
    }

    std::vector<std::string> calls;
    std::set<std::string> consume;
    // Runs inside the call, before it returns.
    std::function<void(const std::string& operation)> sideEffect;

private:
    bool At(const char* operation, int x, int y, int id)
    {
        return Record(operation, " " + std::to_string(x) + "," + std::to_string(y) + " #" + std::to_string(id));
    }
    bool Record(const std::string& operation, const std::string& arguments)
    {
        calls.push_back(operation + arguments);
        if (m_journal)
            m_journal->push_back(m_name + ":" + operation);
        if (sideEffect)
            sideEffect(operation);
        return consume.count(operation) > 0;
    }

    std::string m_name;
    std::vector<std::string>* m_journal;
};
