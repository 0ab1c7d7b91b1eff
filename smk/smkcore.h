/* The core library: the one thing that smx imports from it. */
#ifndef SMKCORE_H
#define SMKCORE_H

#ifdef __cplusplus
extern "C" {
#endif

/* The number of threads that array functions may use. It starts at OMP_NUM_THREADS where that is set to a number, else
   at 1. Set it before the call that it is meant for; it is read without a lock. */
#if defined(__GNUC__)
__attribute__((visibility("default")))
#endif
extern int threads_omp_of_n_smk;

#ifdef __cplusplus
}
#endif

#endif
