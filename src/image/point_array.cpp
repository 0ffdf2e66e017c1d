#include "image/point_array.h"

#include <algorithm>
#include <cstdlib>

#include "engine/tuning.h"
#include "platform/arith.h"

namespace {

constexpr tagOT_POINT kNoPoint = {-1, -1};

int Width(const OT_RECT& r) { return Wrap32Sub(r.right, r.left); }
int Height(const OT_RECT& r) { return Wrap32Sub(r.bottom, r.top); }
int Area(const OT_RECT& r) { return Wrap32Mul(Height(r), Width(r)); }

// Brings [lo, hi) to the side `side` around its centre; an odd side loses one pixel.
void CentreSpan(int32_t* lo, int32_t* hi, int side) {
  const int centre = Wrap32Add(*lo, *hi) >> 1;
  const int half = side >> 1;
  *lo = Wrap32Sub(centre, half);
  *hi = Wrap32Add(centre, half);
}

void ClampSpanToObjectSize(int32_t* lo, int32_t* hi) {
  const int side = Wrap32Sub(*hi, *lo);
  if (side > g_MAX_OBJ_SIZE) {
    CentreSpan(lo, hi, g_MAX_OBJ_SIZE);
  } else if (side < g_MIN_OBJ_SIZE) {
    CentreSpan(lo, hi, g_MIN_OBJ_SIZE);
  }
}

}  // namespace

tag_CPointArray* newCPointArray() {
  tag_CPointArray* arr = static_cast<tag_CPointArray*>(std::malloc(sizeof(tag_CPointArray)));
  if (arr == nullptr) return nullptr;
  CPointArray_Initialize(arr);
  return arr;
}

void CPointArray_Initialize(tag_CPointArray* arr) {
  arr->count = 0;
  arr->head = nullptr;
  arr->tail = nullptr;
  arr->freeList = nullptr;
  arr->pool = static_cast<tag_CPointNode*>(std::malloc(sizeof(tag_CPointNode) * kPointPoolCapacity));
  if (arr->pool == nullptr) return;
  for (int i = 0; i + 1 < kPointPoolCapacity; ++i) arr->pool[i].next = &arr->pool[i + 1];
  arr->pool[kPointPoolCapacity - 1].next = nullptr;
  arr->freeList = arr->pool;
}

// A full pool drops the point without a word: the flood fill relies on this to bound its work.
void CPointArray_Add(tag_CPointArray* arr, int x, int y) {
  tag_CPointNode* node = arr->freeList;
  if (node == nullptr) return;
  arr->freeList = node->next;
  node->x = x;
  node->y = y;
  node->next = nullptr;
  if (arr->tail != nullptr) {
    arr->tail->next = node;
  } else {
    arr->head = node;
  }
  arr->tail = node;
  ++arr->count;
}

void CPointArray_Add(tag_CPointArray* arr, tagOT_POINT point) { CPointArray_Add(arr, point.x, point.y); }

void CPointArray_Add(tag_CPointArray* arr, int* xs, int y, int n) {
  for (int i = 0; i < n && arr->freeList != nullptr; ++i) CPointArray_Add(arr, xs[i], y);
}

tagOT_POINT CPointArray_TakeFirst(tag_CPointArray* arr) {
  tag_CPointNode* node = arr->head;
  if (node == nullptr) return kNoPoint;
  arr->head = node->next;
  if (arr->head == nullptr) arr->tail = nullptr;
  node->next = arr->freeList;
  arr->freeList = node;
  --arr->count;
  return tagOT_POINT{node->x, node->y};
}

tagOT_POINT CPointArray_GetAt(tag_CPointArray* arr, int i) {
  tag_CPointNode* node = arr->head;
  for (int k = std::min(arr->count, i); k > 0 && node != nullptr; --k) node = node->next;
  return node != nullptr ? tagOT_POINT{node->x, node->y} : kNoPoint;
}

// dst's tail is taken from src even when src is empty, which leaves dst without a tail; kept as
// it is. The moved nodes stay in src's pool.
void CPointArray_Append(tag_CPointArray* dst, tag_CPointArray* src) {
  dst->count = Wrap32Add(dst->count, src->count);
  if (dst->tail != nullptr) {
    dst->tail->next = src->head;
  } else {
    dst->head = src->head;
  }
  dst->tail = src->tail;
  src->count = 0;
  src->head = nullptr;
  src->tail = nullptr;
}

void CPointArray_RemoveAll(tag_CPointArray* arr) {
  std::free(arr->pool);
  arr->count = 0;
  arr->head = nullptr;
  arr->tail = nullptr;
  arr->freeList = nullptr;
  arr->pool = nullptr;
}

void delCPointArray(tag_CPointArray* arr) {
  if (arr == nullptr) return;
  std::free(arr->pool);
  std::free(arr);
}

OT_RECT AndRect(OT_RECT a, OT_RECT b) {
  return OT_RECT{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                 std::min(a.bottom, b.bottom)};
}

OT_RECT AndRect1(OT_RECT a, OT_RECT b) { return AndRect(a, b); }

// Edges that touch count as an overlap of area 0; the area test itself is strict.
int IsIntersection_Obj(OT_RECT a, OT_RECT b) {
  const OT_RECT overlap = AndRect(a, b);
  if (Width(overlap) < 0 || Height(overlap) < 0) return 0;
  const int smaller = std::min(Area(a), Area(b));
  return Area(overlap) > (smaller >> 2) ? 1 : 0;
}

OT_RECT ResizeValidRectSize(OT_RECT rect) {
  ClampSpanToObjectSize(&rect.left, &rect.right);
  ClampSpanToObjectSize(&rect.top, &rect.bottom);
  return rect;
}

// Edges are evened outward here, while the image clips even them inward; both are intended.
void ResizeValidRectSize_ltrb(int* l, int* t, int* r, int* b, int cx, int cy) {
  const int maxHalf = g_MAX_OBJ_SIZE >> 1;
  if (*l < Wrap32Sub(cx, maxHalf)) *l = Wrap32Sub(cx, maxHalf);
  if (*r > Wrap32Add(cx, maxHalf)) *r = Wrap32Add(cx, maxHalf);
  if (*t < Wrap32Sub(cy, maxHalf)) *t = Wrap32Sub(cy, maxHalf);
  if (*b > Wrap32Add(cy, maxHalf)) *b = Wrap32Add(cy, maxHalf);

  const int minSide = g_MIN_OBJ_SIZE;
  const int minHalf = minSide >> 1;
  if (Wrap32Sub(*r, *l) < minSide) {
    *l = Wrap32Sub(cx, minHalf);
    *r = Wrap32Add(cx, minHalf);
  }
  if (Wrap32Sub(*b, *t) < minSide) {
    *t = Wrap32Sub(cy, minHalf);
    *b = Wrap32Add(cy, minHalf);
  }

  if ((*l & 1) != 0) *l = Wrap32Sub(*l, 1);
  if ((*t & 1) != 0) *t = Wrap32Sub(*t, 1);
  if ((*r & 1) != 0) *r = Wrap32Add(*r, 1);
  if ((*b & 1) != 0) *b = Wrap32Add(*b, 1);
}
