# The checks beside ./test, run by hand: format, clang-tidy, sanitizers. Sourced after common.sh, with the repository as
# working folder.

# Every C++ file is as clang-format leaves it.
check_format() {
  git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run --Werror
}

# clang-tidy over the program's sources; its set is .clang-tidy. It reads the commands of a build without precompiled
# headers, which only g++ could read, and needs no built file.
check_tidy() {
  cmake --preset tidy
  run-clang-tidy -p build/tidy -quiet -j "$(nproc)" "^$PWD/src/.*\.cpp$"
}

# The rules' tests under AddressSanitizer and UndefinedBehaviorSanitizer.
check_with_sanitizers() {
  cmake --preset sanitize
  cmake --build --preset sanitize --target vandrel-rule-tests
  build/sanitize/bin/vandrel-rule-tests --gtest_brief=1
}
