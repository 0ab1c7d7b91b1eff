/* smx: linear algebra for small matrices and short vectors, above all for large arrays of them. */
#ifndef SMX_H
#define SMX_H

#include "smxarith.h"
#include "smxdefs.h"
#include "smxfactor.h"
#include "smxproduct.h"

#endif
