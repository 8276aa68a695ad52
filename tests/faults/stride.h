#ifndef TESTS_PROOF_STRIDE_H
#define TESTS_PROOF_STRIDE_H

namespace proof {

// One place of so many is tried: each in one build, which is proof enough, fewer in the others.
inline constexpr int kStride = PROOF_STRIDE;

}  // namespace proof

#endif  // TESTS_PROOF_STRIDE_H
