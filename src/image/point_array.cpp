// TEMPORARY STUB: replaced by the real implementation.
#include "image/point_array.h"

#pragma GCC diagnostic ignored "-Wunused-parameter"
tag_CPointArray* newCPointArray() { return nullptr; }
void CPointArray_Initialize(tag_CPointArray* arr) {}
void CPointArray_Add(tag_CPointArray* arr, tagOT_POINT point) {}
void CPointArray_Add(tag_CPointArray* arr, int x, int y) {}
void CPointArray_Add(tag_CPointArray* arr, int* xs, int y, int n) {}
tagOT_POINT CPointArray_TakeFirst(tag_CPointArray* arr) { return tagOT_POINT{-1, -1}; }
tagOT_POINT CPointArray_GetAt(tag_CPointArray* arr, int i) { return tagOT_POINT{-1, -1}; }
void CPointArray_Append(tag_CPointArray* dst, tag_CPointArray* src) {}
void CPointArray_RemoveAll(tag_CPointArray* arr) {}
void delCPointArray(tag_CPointArray* arr) {}
OT_RECT AndRect(OT_RECT a, OT_RECT b) { return OT_RECT{0, 0, 0, 0}; }
OT_RECT AndRect1(OT_RECT a, OT_RECT b) { return OT_RECT{0, 0, 0, 0}; }
int IsIntersection_Obj(OT_RECT a, OT_RECT b) { return 0; }
OT_RECT ResizeValidRectSize(OT_RECT rect) { return OT_RECT{0, 0, 0, 0}; }
void ResizeValidRectSize_ltrb(int* l, int* t, int* r, int* b, int cx, int cy) {}
