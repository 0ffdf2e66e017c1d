#include "platform/log.h"

#include <cstdarg>
#include <cstdio>

#include "plovixengine.h"

#ifdef __ANDROID__
#include <android/log.h>
#endif

namespace {

PlovixLogCallback g_logCallback = nullptr;
void* g_logUser = nullptr;

constexpr int kMaxMessage = 1024;

#ifndef __ANDROID__
char PriorityLetter(int priority) {
  switch (priority) {
    case 2: return 'V';
    case 3: return 'D';
    case kLogInfo: return 'I';
    case 5: return 'W';
    case kLogError: return 'E';
    case 7: return 'F';
    default: return '?';
  }
}
#endif

}  // namespace

int plovix_log_print(int priority, const char* tag, const char* fmt, ...) {
  char text[kMaxMessage];
  va_list args;
  va_start(args, fmt);
  const int n = std::vsnprintf(text, sizeof(text), fmt, args);
  va_end(args);
  if (g_logCallback != nullptr) {
    g_logCallback(priority, tag, text, g_logUser);
    return n;
  }
#ifdef __ANDROID__
  return __android_log_print(priority, tag, "%s", text);
#else
  return std::fprintf(stderr, "%c/%s: %s\n", PriorityLetter(priority), tag, text);
#endif
}

extern "C" PLOVIX_API void plovix_set_log_callback(PlovixLogCallback cb, void* user) {
  g_logCallback = cb;
  g_logUser = cb != nullptr ? user : nullptr;
}
