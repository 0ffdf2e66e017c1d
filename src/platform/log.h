// The one path every engine message takes: Android's liblog, a host sink on other platforms, or
// the callback a host installed with plovix_set_log_callback.
#pragma once

constexpr int kLogInfo = 4;   // ANDROID_LOG_INFO
constexpr int kLogError = 6;  // ANDROID_LOG_ERROR
constexpr const char* kLogTag = "PlovixPlugin";

// Same signature and behaviour as __android_log_print.
int plovix_log_print(int priority, const char* tag, const char* fmt, ...)
    __attribute__((format(printf, 3, 4)));

// Shorthands with the engine's tag.
#define PLOVIX_LOGI(...) plovix_log_print(kLogInfo, kLogTag, __VA_ARGS__)
#define PLOVIX_LOGE(...) plovix_log_print(kLogError, kLogTag, __VA_ARGS__)
