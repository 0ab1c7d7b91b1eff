// The smx names without their element type, and two ways of calling them: once for all objects, or once for each.
#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

#include "smx.h"

namespace robot {

// One overload a type: everything else in the program is written once, for any element type.
#define ROBOT_OVERLOADS(operation)                        \
    template <class... Arguments>                         \
    SmxStatus operation(float, Arguments... arguments) {  \
        return smx##operation##_32f(arguments...);        \
    }                                                     \
    template <class... Arguments>                         \
    SmxStatus operation(double, Arguments... arguments) { \
        return smx##operation##_64f(arguments...);        \
    }
ROBOT_OVERLOADS(Mul_mm)
ROBOT_OVERLOADS(Mul_mt)
ROBOT_OVERLOADS(Mul_tm)
ROBOT_OVERLOADS(Mul_mama)
ROBOT_OVERLOADS(Mul_mam)
ROBOT_OVERLOADS(Mul_mma)
ROBOT_OVERLOADS(Mul_mata)
ROBOT_OVERLOADS(LUDecomp_m)
ROBOT_OVERLOADS(LUDecomp_ma)
ROBOT_OVERLOADS(LUBackSubst_mv)
ROBOT_OVERLOADS(LUBackSubst_mava)
#undef ROBOT_OVERLOADS

// Matrices in an array of type T: object n, row i, column j at base[n * pitch + i * row + j]. The pitch is 0 for a
// matrix that all objects share.
template <class T>
struct Matrices {
    T *base;
    int pitch, row;

    T *object(std::size_t n) const { return base + n * static_cast<std::size_t>(pitch); }
    int stride0() const { return pitch * static_cast<int>(sizeof(T)); }
    int stride1() const { return row * static_cast<int>(sizeof(T)); }
};

// What the library was asked to do, and how long it took.
struct Work {
    double seconds = 0;
    double objects = 0;
};

class Stopwatch {
public:
    Stopwatch(Work &measured, int objects) : work(measured) { work.objects += objects; }
    ~Stopwatch() { work.seconds += std::chrono::duration<double>(Clock::now() - start).count(); }
    Stopwatch(const Stopwatch &) = delete;
    Stopwatch &operator=(const Stopwatch &) = delete;

private:
    using Clock = std::chrono::steady_clock;
    Work &work;
    Clock::time_point start = Clock::now();
};

inline constexpr int joints = 6;

// One call for all objects.
template <class T>
struct AllAtOnce {
    static constexpr int element = sizeof(T);
    int count;
    Work work{};

    // dst = a b for square matrices of the given side.
    void multiply(Matrices<T> a, Matrices<T> b, Matrices<T> dst, int side) {
        Stopwatch running(work, count);
        if (a.pitch == 0)
            Mul_mma(T(), a.base, a.stride1(), element, side, side, b.base, b.stride0(), b.stride1(), element, side,
                    side, dst.base, dst.stride0(), dst.stride1(), element, count);
        else if (b.pitch == 0)
            Mul_mam(T(), a.base, a.stride0(), a.stride1(), element, side, side, b.base, b.stride1(), element, side,
                    side, dst.base, dst.stride0(), dst.stride1(), element, count);
        else
            Mul_mama(T(), a.base, a.stride0(), a.stride1(), element, side, side, b.base, b.stride0(), b.stride1(),
                     element, side, side, dst.base, dst.stride0(), dst.stride1(), element, count);
    }

    // dst = a times the transpose of b.
    void multiplyTransposed(Matrices<T> a, Matrices<T> b, Matrices<T> dst, int side) {
        Stopwatch running(work, count);
        Mul_mata(T(), a.base, a.stride0(), a.stride1(), element, side, side, b.base, b.stride0(), b.stride1(), element,
                 side, side, dst.base, dst.stride0(), dst.stride1(), element, count);
    }

    // The status of an array call says only that some object was refused, and each thread stops at the first one of
    // its share. Then each object is asked for its own status, which also factors those that were left behind.
    void factor(Matrices<T> a, int *pivots, Matrices<T> lu, std::vector<char> &refused) {
        Stopwatch running(work, count);
        const SmxStatus status = LUDecomp_ma(T(), a.base, a.stride0(), a.stride1(), element, pivots, lu.base,
                                             lu.stride0(), lu.stride1(), element, joints, count);
        refused.assign(static_cast<std::size_t>(count), 0);
        if (status == smxStsSingularErr) factorEach(a, pivots, lu, refused);
    }

    void solve(Matrices<T> lu, const int *pivots, const T *right, T *solution) {
        Stopwatch running(work, count);
        LUBackSubst_mava(T(), lu.base, lu.stride0(), lu.stride1(), element, pivots, right, joints * element, element,
                         solution, joints * element, element, joints, count);
    }

    static void factorEach(Matrices<T> a, int *pivots, Matrices<T> lu, std::vector<char> &refused) {
        for (std::size_t n = 0; n < refused.size(); ++n)
            refused[n] = LUDecomp_m(T(), a.object(n), a.stride1(), element, pivots + n * joints, lu.object(n),
                                    lu.stride1(), element, joints) != smxStsNoErr;
    }
};

// The same with one call for each object.
template <class T>
struct OneByOne {
    static constexpr int element = sizeof(T);
    int count;
    Work work{};

    void multiply(Matrices<T> a, Matrices<T> b, Matrices<T> dst, int side) {
        Stopwatch running(work, count);
        for (std::size_t n = 0; n < size(); ++n)
            Mul_mm(T(), a.object(n), a.stride1(), element, side, side, b.object(n), b.stride1(), element, side, side,
                   dst.object(n), dst.stride1(), element);
    }

    void multiplyTransposed(Matrices<T> a, Matrices<T> b, Matrices<T> dst, int side) {
        Stopwatch running(work, count);
        for (std::size_t n = 0; n < size(); ++n)
            Mul_mt(T(), a.object(n), a.stride1(), element, side, side, b.object(n), b.stride1(), element, side, side,
                   dst.object(n), dst.stride1(), element);
    }

    void factor(Matrices<T> a, int *pivots, Matrices<T> lu, std::vector<char> &refused) {
        Stopwatch running(work, count);
        refused.assign(size(), 0);
        AllAtOnce<T>::factorEach(a, pivots, lu, refused);
    }

    void solve(Matrices<T> lu, const int *pivots, const T *right, T *solution) {
        Stopwatch running(work, count);
        for (std::size_t n = 0; n < size(); ++n)
            LUBackSubst_mv(T(), lu.object(n), lu.stride1(), element, pivots + n * joints, right + n * joints, element,
                           solution + n * joints, element, joints);
    }

    std::size_t size() const { return static_cast<std::size_t>(count); }
};

} // namespace robot
