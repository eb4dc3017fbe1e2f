#include "history/CaptureHistoryStore.h"
