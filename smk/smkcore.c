#include "smkcore.h"

#include <errno.h>
#include <limits.h>
#include <stdlib.h>

int threads_omp_of_n_smk = 1;

/* OMP_NUM_THREADS may be a list, one number for each nesting level: the first one counts. */
__attribute__((constructor)) static void read_thread_count(void) {
    const char *text = getenv("OMP_NUM_THREADS");
    char *end;
    long threads;
    if (text == NULL) return;
    errno = 0;
    threads = strtol(text, &end, 10);
    if (end == text || (*end != '\0' && *end != ',' && *end != ' ')) return;
    if (errno == 0 && threads >= INT_MIN && threads <= INT_MAX) threads_omp_of_n_smk = (int)threads;
}
