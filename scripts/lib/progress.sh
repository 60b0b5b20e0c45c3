# shellcheck shell=bash
# Saying what goes on, on standard error: standard output belongs to the program that is started.

say() { printf '%s\n' "$*" >&2; }

# show_progress: shows each line that it reads in place of the one before, and nothing in the end.
# On a terminal only.
show_progress() {
  local line
  while IFS= read -r line; do
    [[ ! -t 2 ]] || printf '\r\033[K  %s' "$line" >&2
  done
  [[ ! -t 2 ]] || printf '\r\033[K' >&2
}

# plural NUMBER NOUN
plural() { if [[ $1 == 1 ]]; then echo "$1 $2"; else echo "$1 $2s"; fi; }

# took SECONDS: that duration in words.
took() {
  if [[ $1 -lt 100 ]]; then plural "$1" second; else plural "$((($1 + 30) / 60))" minute; fi
}
