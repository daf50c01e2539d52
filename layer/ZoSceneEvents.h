#pragma once

#include <string>

class IZoGraphicsMapObject;

// Appends the object's id to the hit list named eventName, a QVariantList
// property of the map module's event object. Ids keep their delivery order and
// repeat when delivered twice; the host reads and clears the lists.
void RecordSceneEvent(const std::string& eventName, IZoGraphicsMapObject* object);

// Raises the bool property grabName: an embedded widget took the event itself.
void RecordSceneGrab(const std::string& grabName, IZoGraphicsMapObject* object);
