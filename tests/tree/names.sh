#!/bin/sh
# Rejects test names with a semicolon: CTest splits them into two names that match no test, and both pass.
#   usage: names.sh SOURCE_FOLDER
found=$(grep -rnE --include='*.cpp' 'TEST_CASE\("[^"]*;' "$1/tests") || exit 0
echo "These tests would never run; remove the semicolon from their names:"
echo "$found"
exit 1
