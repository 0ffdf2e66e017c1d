#include "engine/plovix_engine.h"
#include "plovixengine.h"

void* create_plovix_handle(void) { return new PlovixEngine(); }

int init_plovix(void* handle) { return static_cast<PlovixEngine*>(handle)->Init(); }

int process_plovix(void* handle, PlovixStruct* rec) { return static_cast<PlovixEngine*>(handle)->Process(rec); }

int deinit_plovix(void* handle) { return static_cast<PlovixEngine*>(handle)->DeInit(); }

void destroy_plovix_handle(void* handle) { delete static_cast<PlovixEngine*>(handle); }
