// Corrections of gMst's track rectangle after a preview size change (through the sensor's field of
// view) or a zoom change (about the frame centre). Working-image pixels.
#pragma once

#include "platform/export.h"

constexpr int kSensorTypeUnknown = -1;

constexpr float kMinZoomRatio = 1.0f;
constexpr float kMaxZoomRatio = 10.0f;
// Both ends included; NaN is not a zoom ratio.
inline bool IsValidZoomRatio(float z) { return z >= kMinZoomRatio && z <= kMaxZoomRatio; }

PLOVIX_EXPORT void AdjustTrackRect(int sensorType, int prevW, int prevH, int curW, int curH);
// 0 success, 1 result out of the frame (rectangle unchanged), -1 zoom ratio out of range.
PLOVIX_EXPORT int ResizeTrackRect(float prevZoom, float curZoom, int width, int height);
