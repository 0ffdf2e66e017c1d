// A rectangle of an image that has been made ready (decimated, projected) so far, grown to cover
// each new request: only the parts not yet covered are handed on to be made ready.
#pragma once

#include <algorithm>

#include "image/ot_types.h"

inline bool IsEmptyRect(const OT_RECT& r) { return r.left >= r.right || r.top >= r.bottom; }

// Grows *covered to the bounding rectangle of itself and want, calling take(part) for each part
// of the new rectangle that *covered did not cover, at most four.
template <typename Take>
void GrowCovered(OT_RECT* covered, const OT_RECT& want, Take take) {
  const OT_RECT c = *covered;
  if (IsEmptyRect(want)) return;
  if (IsEmptyRect(c)) {
    take(want);
    *covered = want;
    return;
  }
  if (c.left <= want.left && c.top <= want.top && want.right <= c.right && want.bottom <= c.bottom) return;
  const OT_RECT u{std::min(c.left, want.left), std::min(c.top, want.top), std::max(c.right, want.right),
                  std::max(c.bottom, want.bottom)};
  if (u.top < c.top) take(OT_RECT{u.left, u.top, u.right, c.top});
  if (c.bottom < u.bottom) take(OT_RECT{u.left, c.bottom, u.right, u.bottom});
  if (u.left < c.left) take(OT_RECT{u.left, c.top, c.left, c.bottom});
  if (c.right < u.right) take(OT_RECT{c.right, c.top, u.right, c.bottom});
  *covered = u;
}
