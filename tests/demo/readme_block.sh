# readme_block.sh README PROGRAM: what the example prints is what the README says that it prints, in the first text
# block behind the first mention of build/.../examples/PROGRAM.
readme=$1
program=$2
name=$(basename "$program")
scratch=readme_block_$name
mkdir -p "$scratch" && cd "$scratch" || exit 1
sed -n "\\,examples/$name\\b,,\$p" "$readme" | sed -n '/^```text$/,/^```$/p' | sed '1d;/^```$/,$d' >expected.txt
[ -s expected.txt ] || { echo "$readme has no output of $name" && exit 1; }
"$program" >printed.txt || exit 1
diff expected.txt printed.txt || exit 1
grep -q '</svg>' "$name.svg"
