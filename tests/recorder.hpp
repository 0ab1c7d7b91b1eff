#pragma once

struct RecordedCall {
    const char *name;
    const void *first;
    int second;
};

extern "C" {
int recorder_calls(const RecordedCall **found);
void recorder_clear();
extern int (*recorder_answer)();         // what a recorded function returns; 0 where it is null
extern void (*recorder_at_allocation)(); // called whenever a driver takes its scratch
}
