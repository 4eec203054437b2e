#!/usr/bin/env bash
# Builds the libFuzzer targets of fuzz/ with clang (once, into build/fuzz) and runs them.
#   scripts/fuzz.sh --list             names the targets
#   scripts/fuzz.sh TARGET SECONDS     fuzzes one target for SECONDS
#   scripts/fuzz.sh --all SECONDS      fuzzes every target in turn (./test runs this briefly)
# Each run starts from the crafted seeds in fuzz/corpus/TARGET, the matching files of samples/
# and what earlier runs found (build/fuzz/corpus/TARGET). A broken round trip or a crash stops
# the run with a non-zero status and leaves the input in build/fuzz/artifacts.
set -euo pipefail
cd "$(dirname "$0")/.."

targets=(Module Project Group IdeLoad Settings)
usage() { echo "usage: scripts/fuzz.sh --list | TARGET SECONDS | --all SECONDS" >&2; exit 2; }

# Which sample files seed a target.
sample_globs() {
  case "$1" in
    Module|IdeLoad) echo '*.bas *.cls *.frm *.ctl *.pag *.dob *.dsr' ;;
    Project) echo '*.vbp' ;;
    Group) echo '*.vbg' ;;
    Settings) echo '*.ini' ;;
  esac
}

build=build/fuzz
configure_and_build() {
  if [ ! -f "$build/build.ninja" ]; then
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    cmake -S . -B "$build" -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
      -DQM_FUZZ=ON -DQM_SANITIZE=ON -DQM_BUILD_TESTS=OFF -DQM_BUILD_BENCH=OFF \
      -DQM_BUILD_STUDIO=OFF "${launcher[@]}" >/dev/null
  fi
  cmake --build "$build" -j "$(nproc)" --target "${@/#/fuzz_}"
}

run_one() {
  local target=$1 seconds=$2
  local corpus="$build/corpus/$target" seeds="$build/seeds/$target"
  mkdir -p "$corpus" "$seeds" "$build/artifacts"
  local glob
  for glob in $(sample_globs "$target"); do
    find samples -type f -iname "$glob" -exec cp -f {} "$seeds/" \;
  done
  mkdir -p "$build/logs"
  local log="$build/logs/$target.log"
  echo "fuzz: $target for ${seconds}s (log: $log)" >&2
  if ! ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
    UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    "$build/fuzz/fuzz_$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
    -max_len=65536 -dict=fuzz/vb6.dict -print_final_stats=1 \
    -artifact_prefix="$build/artifacts/$target-" "$corpus" "fuzz/corpus/$target" "$seeds" \
    2>"$log"; then
    tail -n 60 "$log" >&2
    echo "fuzz: $target failed; the input that broke it is in $build/artifacts" >&2
    return 1
  fi
  grep -E '^#[0-9]+[[:space:]]+DONE|^stat::number_of_executed_units' "$log" >&2
}

case "${1:-}" in
  --list) printf '%s\n' "${targets[@]}" ;;
  --all)
    [ $# -eq 2 ] || usage
    configure_and_build "${targets[@]}"
    for t in "${targets[@]}"; do run_one "$t" "$2"; done
    ;;
  ''|-*) usage ;;
  *)
    [ $# -eq 2 ] || usage
    printf '%s\n' "${targets[@]}" | grep -qx "$1" || { echo "fuzz: no target '$1' (see --list)" >&2; exit 2; }
    configure_and_build "$1"
    run_one "$1" "$2"
    ;;
esac
