// A FIFO of points on a fixed pool of nodes (the flood fill's work queue), and rectangle helpers.
#pragma once

#include <cstdint>

#include "image/ot_types.h"
#include "platform/export.h"

constexpr int kPointPoolCapacity = 500;

struct tag_CPointNode {
  int32_t x;
  int32_t y;
  tag_CPointNode* next;
};

struct tag_CPointArray {
  int32_t count;
  tag_CPointNode* head;
  tag_CPointNode* tail;
  tag_CPointNode* freeList;
  tag_CPointNode* pool;
};

PLOVIX_EXPORT tag_CPointArray* newCPointArray();
PLOVIX_EXPORT void CPointArray_Initialize(tag_CPointArray* arr);
PLOVIX_EXPORT void CPointArray_Add(tag_CPointArray* arr, tagOT_POINT point);
PLOVIX_EXPORT void CPointArray_Add(tag_CPointArray* arr, int x, int y);
PLOVIX_EXPORT void CPointArray_Add(tag_CPointArray* arr, int* xs, int y, int n);
PLOVIX_EXPORT tagOT_POINT CPointArray_TakeFirst(tag_CPointArray* arr);
PLOVIX_EXPORT tagOT_POINT CPointArray_GetAt(tag_CPointArray* arr, int i);
PLOVIX_EXPORT void CPointArray_Append(tag_CPointArray* dst, tag_CPointArray* src);
PLOVIX_EXPORT void CPointArray_RemoveAll(tag_CPointArray* arr);
PLOVIX_EXPORT void delCPointArray(tag_CPointArray* arr);

PLOVIX_EXPORT OT_RECT AndRect(OT_RECT a, OT_RECT b);
PLOVIX_EXPORT OT_RECT AndRect1(OT_RECT a, OT_RECT b);
PLOVIX_EXPORT int IsIntersection_Obj(OT_RECT a, OT_RECT b);
PLOVIX_EXPORT OT_RECT ResizeValidRectSize(OT_RECT rect);
PLOVIX_EXPORT void ResizeValidRectSize_ltrb(int* l, int* t, int* r, int* b, int cx, int cy);
