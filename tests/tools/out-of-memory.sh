#!/usr/bin/env bash
# morvo render under a memory limit that a scene of many key frames exceeds: the failed
# allocation must end as one error line and exit status 1, not as a crash.
set -u
morvo=$1 folder=$2
scene="$folder/many-key-frames.mvr"
{
  printf 'Version 0.93\nQueue {\nKeySequence {\n'
  for ((frame = 0; frame < 20000; ++frame)); do
    printf 'KeyFrame {\nTime %d\nModel {\nStruct {\nName "Camera"\nCamera {\n}\nChildren {\n"Box"\n}\n}\n' "$frame"
    printf 'Struct {\nName "Box"\nPrimitive {\nType "Box"\nResolution 2\n}\n}\n}\n}\n'
  done
  printf '}\n}\n'
} >"$scene"
errors=$( (ulimit -v 150000; "$morvo" render "$scene" -o "$folder/many-key-frames.glb") 2>&1 >/dev/null)
status=$?
echo "$errors"
[ "$status" -eq 1 ] || { echo "exit status $status, expected 1"; exit 1; }
[ "$(printf '%s\n' "$errors" | grep -c '^Morvo Error: ')" -eq 1 ] || exit 1
