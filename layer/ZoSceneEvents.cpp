#include "layer/ZoSceneEvents.h"

#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoMapModule.h>

#include <QObject>
#include <QVariant>
#include <QVariantList>

namespace
{
QObject* EventObjectOf(IZoGraphicsMapObject* object)
{
    IZoMapModule* mapModule = object ? object->GetMapModule() : nullptr;
    return mapModule ? mapModule->GetEventObject() : nullptr;
}
} // namespace

void RecordSceneEvent(const std::string& eventName, IZoGraphicsMapObject* object)
{
    QObject* eventObject = EventObjectOf(object);
    if (!eventObject)
        return;
    QVariantList ids = eventObject->property(eventName.c_str()).toList();
    ids.append(QVariant(object->GetObjectID()));
    eventObject->setProperty(eventName.c_str(), ids);
}

void RecordSceneGrab(const std::string& grabName, IZoGraphicsMapObject* object)
{
    QObject* eventObject = EventObjectOf(object);
    if (!eventObject)
        return;
    if (!eventObject->property(grabName.c_str()).toBool())
        eventObject->setProperty(grabName.c_str(), QVariant(true));
}
