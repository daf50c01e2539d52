#include <ZoGraphics/IZoGraphicsEditableUser.h>

// Out of line so that the defaults, the vtable and the typeinfo are exported
// from the library once instead of being emitted into every host.

IZoGraphicsEditableUser::~IZoGraphicsEditableUser() = default;

CVector3D IZoGraphicsEditableUser::GetEditorPosition(IZoGraphicsEditObject*) const { return {}; }
bool IZoGraphicsEditableUser::OnStartTranslation(IZoGraphicsEditObject*) { return false; }
bool IZoGraphicsEditableUser::OnProcessTranslation(IZoGraphicsEditObject*, const CVector3D&) { return false; }
bool IZoGraphicsEditableUser::OnBackoutTranslation(IZoGraphicsEditObject*, const CVector3D&) { return false; }
bool IZoGraphicsEditableUser::OnCompleteTranslation(IZoGraphicsEditObject*, const CVector3D&) { return false; }

double IZoGraphicsEditableUser::GetEditorRotation(IZoGraphicsEditObject*) const { return 0.0; }
CVector3D IZoGraphicsEditableUser::GetEditorControlPoint(IZoGraphicsEditObject*) const { return {}; }
bool IZoGraphicsEditableUser::OnStartRotation(IZoGraphicsEditObject*) { return false; }
bool IZoGraphicsEditableUser::OnProcessRotation(IZoGraphicsEditObject*, double, double) { return false; }
bool IZoGraphicsEditableUser::OnBackoutRotation(IZoGraphicsEditObject*, double) { return false; }
bool IZoGraphicsEditableUser::OnCompleteRotation(IZoGraphicsEditObject*, double) { return false; }

EXTENT IZoGraphicsEditableUser::GetEditorBoundingBox(IZoGraphicsEditObject*) const { return {}; }
bool IZoGraphicsEditableUser::OnStartScaleBoundingBox(IZoGraphicsEditObject*) { return false; }
bool IZoGraphicsEditableUser::OnProcessScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&) { return false; }
bool IZoGraphicsEditableUser::OnBackoutScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&) { return false; }
bool IZoGraphicsEditableUser::OnCompleteScaleBoundingBox(IZoGraphicsEditObject*, EXTENT&) { return false; }

CVector3D IZoGraphicsEditableUser::GetEditorKeyPointSet(IZoGraphicsEditObject*, int) { return {}; }
std::vector<CVector3D> IZoGraphicsEditableUser::GetEditorKeyPointSet(IZoGraphicsEditObject*) { return {}; }
bool IZoGraphicsEditableUser::IsKeyPointClosePath() const { return false; }
bool IZoGraphicsEditableUser::IsEnableVirtualIndicate() const { return false; }
bool IZoGraphicsEditableUser::OnStartKeyPointSet(IZoGraphicsEditObject*) { return false; }
bool IZoGraphicsEditableUser::OnProcessKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&) { return false; }
bool IZoGraphicsEditableUser::OnBackoutKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&) { return false; }
bool IZoGraphicsEditableUser::OnCompleteKeyPointChange(IZoGraphicsEditObject*, int, const CVector3D&) { return false; }
bool IZoGraphicsEditableUser::OnCompleteKeyPointInsert(IZoGraphicsEditObject*, int, const CVector3D&) { return false; }
bool IZoGraphicsEditableUser::OnCompleteKeyPointDelete(IZoGraphicsEditObject*, int, const CVector3D&) { return false; }
