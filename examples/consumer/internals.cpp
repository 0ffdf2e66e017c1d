// Calls a few of the library's exported C++ functions through the installed subsystem headers and
// checks their answers. Exits 0 when they agree.
#include <cstdio>

#include <plovixengine/engine/coordinates.h>
#include <plovixengine/engine/motion_predictor.h>
#include <plovixengine/engine/plovix_engine.h>

namespace {

int Fail(const char* what) {
  std::fprintf(stderr, "consumer_internals: %s\n", what);
  return 1;
}

}  // namespace

int main() {
  int left = 0, top = 135, right = 480, bottom = 270;
  ConvertPixelCoordinateToAndroidSystem(left, top, right, bottom, 480, 270);
  if (left != -1000 || top != 0 || right != 1000 || bottom != 1000) return Fail("focus-unit mapping");

  left = -10;
  right = 30;
  top = 50;
  bottom = 90;
  if (PlovixEngine::ValidateRect(&left, &right, &top, &bottom, 480, 270, 100) != 0 || left != 0 || right != 40 ||
      top != 50 || bottom != 90)
    return Fail("ValidateRect");

  MotionPredictor predictor;
  predictor.SetPredictorOptions(5, 10);
  MotionVector out{};
  for (int step = 0; step < 5; ++step) {
    MotionVector in{100 + 2 * step, 50, 90 + 2 * step, 40, 110 + 2 * step, 60};
    predictor.GetMotion(&in, &out);
  }
  if (out.x != 118 || out.left != 108 || out.right != 128) return Fail("motion prediction");

  std::printf("consumer_internals: ok\n");
  return 0;
}
