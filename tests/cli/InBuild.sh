#!/bin/bash
# InBuild.sh PROGRAM EXAMPLE WORK make|ninja: a build system runs the program again when it must, and only then. The names
# hold all characters that a depfile escapes.
set -eu
program=$1 example=$2 work=$3 tool=$4
rm -rf "$work"
mkdir -p "$work/in #1: a\$b"
cd "$work"
cp "$example"/*.xml "in #1: a\$b"
template="in #1: a\$b/template.xml"
sed -i '1a <!DOCTYPE DEVICE SYSTEM "device.dtd">' "$template"
grep -o '^ *<[A-Za-z][A-Za-z0-9_]*' "$template" | tr -d ' <' | sort -u | sed 's/.*/<!ELEMENT & ANY>/' > "in #1: a\$b/device.dtd"
sed 's#": "\([a-z-]*\.xml\)"#": "in \#1: a$b/\1"#; s#"userTypeFilePath": "."#"userTypeFilePath": "in \#1: a$b"#; s#demo-output#out#' \
    "$example/job.json" > job.json
run="$program generate --job job.json --if-changed --stamp 'fan coil.stamp' --depfile fan-coil.d && echo run >> runs"
cat > Makefile <<END
fan\\ coil.stamp:
	$run
-include fan-coil.d
END
cat > build.ninja <<END
rule generate
  command = $run
  depfile = fan-coil.d
build fan\$ coil.stamp: generate
END

# build RUNS WHAT: builds, a minute later by the program's clock; there must have been RUNS runs by then.
clock=1000000000
build() {
    sleep 0.05
    clock=$((clock + 60))
    SOURCE_DATE_EPOCH=$clock "$tool" > log 2>&1 || { cat log; exit 1; }
    [ "$(wc -l < runs)" = "$1" ] || { echo "$2: $(wc -l < runs) runs, $1 are wanted"; cat log fan-coil.d; exit 1; }
}
outputs() { find out -type f -printf '%p %T@\n' | sort; }

build 1 "first build"
[ "$(outputs | wc -l)" -gt 4 ]
before=$(outputs)
build 1 "nothing has changed"
for input in device.dtd template.xml profile.xml format.xml user-types.xml; do
    [ -f "in #1: a\$b/$input" ]
    grep -q "/$input" fan-coil.d || { echo "$input is not in the depfile"; cat fan-coil.d; exit 1; }
done
grep -q ldrf.cat fan-coil.d && grep -q job.json fan-coil.d
echo '<!-- changed -->' >> "in #1: a\$b/device.dtd"
build 2 "the document type definition has changed"
sed -i 's#</[A-Z]*>\s*$#<!-- changed -->&#' "in #1: a\$b/profile.xml"
build 3 "a comment has changed"
[ "$before" = "$(outputs)" ] || { echo "outputs were written anew"; diff <(echo "$before") <(outputs); exit 1; }
sed -i 's#"creator": "#&New #' job.json
build 4 "the job has changed"
[ "$before" != "$(outputs)" ] || { echo "no output was written anew"; exit 1; }
build 4 "nothing has changed again"

# A run that fails leaves no sign of success.
rm 'fan coil.stamp'
sed -i 's#<PROGRAMID>#&X#' "$template"
"$tool" > log 2>&1 && { echo "a failed run has passed"; exit 1; }
[ ! -e 'fan coil.stamp' ]
