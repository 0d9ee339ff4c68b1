#!/bin/sh
# A semicolon in a test's name splits it into two names that no test has, and both pass.   usage: names.sh SOURCE_FOLDER
found=$(grep -rnE --include='*.cpp' 'TEST_CASE\("[^"]*;' "$1/tests") || exit 0
echo "These tests would never run; take the semicolon out of their names:"
echo "$found"
exit 1
