#pragma once

struct RecordedCall {
    const char *name;
    const void *first;
    int second;
};

extern "C" {
int recorder_calls(const RecordedCall **found);
void recorder_clear();
}
