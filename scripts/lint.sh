#!/usr/bin/env bash
# Formatting and static checks: clang-format on every source, cppcheck on the core library.
set -euo pipefail
cd "$(dirname "$0")/.."
files=$(git ls-files 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'tools/*.cpp')
clang-format --dry-run -Werror $files
cppcheck --enable=warning,performance,portability --std=c++20 --quiet --error-exitcode=1 \
  --suppress=missingIncludeSystem --inline-suppr -I src/core src/core
echo "lint: clean"
