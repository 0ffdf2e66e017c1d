#include "engine/plovix_engine.h"
#include "platform/log.h"
#include "plovixengine.h"

// A null handle or record is refused with a message rather than dereferenced: the host gets a
// defined answer and the camera process keeps running.

void* create_plovix_handle(void) { return new PlovixEngine(); }

int init_plovix(void* handle) {
  if (handle == nullptr) {
    PLOVIX_LOGE("PlovixPlugin init called with a null handle");
    return 0;
  }
  return static_cast<PlovixEngine*>(handle)->Init();
}

int process_plovix(void* handle, PlovixStruct* rec) {
  if (handle == nullptr || rec == nullptr) {
    PLOVIX_LOGE("PlovixPlugin process called with a null %s", handle == nullptr ? "handle" : "record");
    return -1;
  }
  return static_cast<PlovixEngine*>(handle)->Process(rec);
}

int deinit_plovix(void* handle) {
  if (handle == nullptr) {
    PLOVIX_LOGE("PlovixPlugin deinit called with a null handle");
    return 0;
  }
  return static_cast<PlovixEngine*>(handle)->DeInit();
}

void destroy_plovix_handle(void* handle) { delete static_cast<PlovixEngine*>(handle); }
