/* Types, statuses and the version query that every part of smx shares. */
#ifndef SMXDEFS_H
#define SMXDEFS_H

#if defined(__GNUC__)
#define SMX_API __attribute__((visibility("default")))
#else
#define SMX_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* What every function but the version query returns: 0 is success, a negative value a failure. A bad argument is
 * reported before anything is written. The other failures come from the computation; the function's own comment says
 * what has been written by then. */
typedef int SmxStatus;

enum {
    smxStsNoErr = 0,                 /* success */
    smxStsErr = -2,                  /* a numerically singular complex 2 by 2 block (general eigenvectors) */
    smxStsSizeErr = -6,              /* a width, height, length or side is below 1 */
    smxStsNullPtrErr = -8,           /* a pointer argument is null */
    smxStsDivByZeroErr = -10,        /* a division by zero was met */
    smxStsNotPosDefErr = -179,       /* a matrix is not positive definite */
    smxStsStrideMatrixErr = -182,    /* a stride is not a positive multiple of the element size */
    smxStsSingularErr = -195,        /* a matrix is singular */
    smxStsRoiShiftMatrixErr = -202,  /* a ROI shift is negative or not a multiple of the element size */
    smxStsCountMatrixErr = -203,     /* count is below 1 */
    smxStsSizeMatchMatrixErr = -204, /* the dimensions of the operands do not fit each other */
    smxStsConvergeErr = -205         /* an iteration did not converge */
};

typedef struct SmxLibraryVersion {
    int versionMajor;          /* 5 */
    int versionMinor;          /* 2 */
    int buildMajor;            /* 108 */
    int buildMinor;            /* 345 */
    char targetCode[4];        /* "px" and two zero bytes: the generic target */
    const char *libraryName;   /* "libsmxpx.so.5.2" */
    const char *versionText;   /* "5.2" */
    const char *buildDateText; /* "Jul 11 2007" */
} SmxLibraryVersion;

/* The one constant version record, the same pointer on every call. It cannot fail, and is never freed. */
SMX_API const SmxLibraryVersion *smxGetLibVersion(void);

#ifdef __cplusplus
}
#endif

#endif
