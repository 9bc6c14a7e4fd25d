#!/usr/bin/env bash
# The installed tree as a desktop and an administrator meet it: "cmake --install" into a
# scratch prefix, then the installed program, its man page, desktop entry, metainfo and icons.
# Usage: test_install.sh BUILD_DIR SOURCE_DIR VERSION APP_ID
set -euo pipefail
build=$1 source=$2 version=$3 id=$4

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
prefix=$scratch/usr
failures=0
fail() {
  echo "FAIL: $*" >&2
  failures=$((failures + 1))
}

unset DESTDIR
cmake --install "$build" --prefix "$prefix" >"$scratch/install.log" ||
  { cat "$scratch/install.log" >&2; exit 1; }

# Every file where a desktop and man look for it, and nothing else: no library, header or test.
icon_sizes="16 22 24 32 48 64 128 256"
expected=(
  bin/vor
  "share/applications/$id.desktop"
  "share/metainfo/$id.metainfo.xml"
  "share/icons/hicolor/scalable/apps/$id.svg"
  share/man/man1/vor.1
  share/doc/vor/manual/index.html
  share/doc/vor/copyright
)
for size in $icon_sizes; do
  expected+=("share/icons/hicolor/${size}x${size}/apps/$id.png")
done
diff <(printf '%s\n' "${expected[@]}" | sort) <(cd "$prefix" && find . -type f | sed 's|^\./||' | sort) ||
  fail "the installed files differ from the layout above (< missing, > unexpected)"

for size in $icon_sizes; do
  png=$prefix/share/icons/hicolor/${size}x${size}/apps/$id.png
  [ -f "$png" ] || continue
  file -b "$png" | grep -q "^PNG image data, $size x $size," ||
    fail "$png is not a PNG of $size x $size: $(file -b "$png")"
done
cmp -s "$source/docs/manual/index.html" "$prefix/share/doc/vor/manual/index.html" ||
  fail "the installed manual is not docs/manual/index.html"

# The installed program on its own: another folder, another home, nothing of the build tree.
work=$scratch/work
mkdir -p "$work/home"
vor() {
  (cd "$work" && env -u VOR_DATABASE HOME="$work/home" XDG_DATA_HOME="$work/home/data" \
    XDG_CONFIG_HOME="$work/home/config" "$prefix/bin/vor" "$@")
}
out=$(vor --version) || fail "vor --version exited with $?"
[ "$out" = "vor $version" ] || fail "vor --version printed '$out', not 'vor $version'"

db=$work/postos/VOR-POSTO.db
out=$(vor init --database "$db") || fail "vor init exited with $?"
[ "$out" = "$db" ] || fail "vor init printed '$out'"
[ -s "$db" ] || fail "vor init left no database"
# The reference rows are compiled into the program: every CSV of data/ arrives whole.
summary=$(vor summary --database "$db") || fail "vor summary exited with $?"
for csv in "$source"/data/*.csv; do
  table=$(basename "$csv" .csv)
  rows=$(($(grep -c . "$csv") - 1))
  grep -Eq "^  $table +$rows linhas," <<<"$summary" ||
    fail "table $table should hold the $rows rows of data/$table.csv"
done

# The man page: groff without a warning, and every command and option of the README in it.
page=$prefix/share/man/man1/vor.1
warnings=$(groff -man -Tutf8 -ww -z "$page" 2>&1)
[ -z "$warnings" ] || fail "groff warns about vor.1: $warnings"
text=$(MANWIDTH=100 man -l -P cat "$page" 2>&1) || fail "man -l vor.1 failed: $text"
readme_block=$(sed -n '/^vor \[--database FILE\]/,/^```/p' "$source/README.md")
[ -n "$readme_block" ] || fail "the README's command block was not found"
commands=$({
  echo "$readme_block" | grep -Eo '^vor [a-z][a-z-]*'
  grep -Eo 'vor demo-register' "$source/README.md"
} | sort -u)
options=$(echo "$readme_block" | grep -Eo -- '--[a-z][a-z-]*' | sort -u)
while read -r command; do
  grep -q -- "$command " <<<"$text" || fail "the man page has no '$command'"
done <<<"$commands"
for option in $options; do
  grep -q -- "$option" <<<"$text" || fail "the man page has no $option"
done
for section in SYNOPSIS COMMANDS OPTIONS DATABASE "EXIT STATUS" ENVIRONMENT FILES EXAMPLES; do
  grep -q "^$section" <<<"$text" || fail "the man page has no section $section"
done
for word in VOR_DATABASE XDG_DATA_HOME VOR-POSTO.db incoming/ backups/ "VOR $version"; do
  grep -q -- "$word" <<<"$text" || fail "the man page does not mention $word"
done

# The desktop entry and the metainfo as the desktop's own validators see them, and what the
# entry names: the installed program and the installed icon.
entry=$prefix/share/applications/$id.desktop
report=$(desktop-file-validate "$entry" 2>&1) || fail "desktop-file-validate: $report"
[ -z "$report" ] || fail "desktop-file-validate: $report"
grep -qx 'Name=VOR - Caderno Vorel de Empreendimento' "$entry" || fail "the entry's Name"
grep -q '^Comment\[pt_BR\]=.' "$entry" || fail "the entry has no pt_BR comment"
grep -Eqx 'Categories=(.*;)?Office;(.*)?' "$entry" || fail "the entry is not in Office"
exec_name=$(sed -n 's/^Exec=\([^ ]*\).*/\1/p' "$entry")
[ -x "$prefix/bin/$exec_name" ] || fail "the entry runs '$exec_name', which is not installed"
grep -qx "Icon=$id" "$entry" || fail "the entry's icon is not $id"
report=$(appstreamcli validate --no-net --explain "$prefix/share/metainfo/$id.metainfo.xml" 2>&1) ||
  fail "appstreamcli validate: $report"
grep -q "<release version=\"$version\"" "$prefix/share/metainfo/$id.metainfo.xml" ||
  fail "the metainfo's release is not $version"

[ "$failures" -eq 0 ] || exit 1
echo "installed tree checked"
