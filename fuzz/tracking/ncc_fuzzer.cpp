// Template matching of arbitrary rectangles (inside the image, larger than it, inverted, far
// outside) of an arbitrary luma plane against an arbitrary template, including a missing or empty
// one. The template is exactly tw x th bytes, the plane exactly w x h.
//
// Input: width, height, template width, template height (1 byte each), a mode byte, the
// rectangle, then the luma bytes and the template bytes.
#include "support/fuzz_support.h"
#include "tracking/ncc.h"

namespace plovix_fuzz {

namespace {

constexpr int kMaxSide = 128;
// Patches of up to 96 x 96 stay below the size where the 32-bit products wrap (about 180 x 180),
// so the score must lie within -100..100.
constexpr int kMaxTemplateSide = 96;

void FillBytes(ByteReader* in, HeapBytes* b) {
  for (size_t i = 0; i < b->size(); ++i) b->get()[i] = in->U8();
}

}  // namespace

}  // namespace plovix_fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace plovix_fuzz;
  static const bool silenced = (SilenceEngineLog(), true);
  (void)silenced;
  ByteReader in(data, size);
  const int w = 1 + in.U8() % kMaxSide;
  const int h = 1 + in.U8() % kMaxSide;
  const int tw = in.U8() % kMaxTemplateSide;
  const int th = in.U8() % kMaxTemplateSide;
  const uint8_t mode = in.U8();
  const OT_RECT rect = ReadRect(&in, w, h);
  HeapBytes luma(static_cast<size_t>(w) * h);
  HeapBytes tmpl(static_cast<size_t>(tw) * th);
  FillBytes(&in, &luma);
  FillBytes(&in, &tmpl);
  // A template that was never cropped is null.
  uint8_t* t = (mode & 1) ? nullptr : tmpl.get();
  const int score = matching_ncc(luma.get(), rect, w, h, t, tw, th);
  Check(score >= -100 && score <= 100, "score in -100..100", score);
  if (t == nullptr || tw < 1 || th < 1) Check(score == -100, "no template scores -100", score);
  return 0;
}
