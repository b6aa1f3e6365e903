# Merges two tables of pricedown_bench, native and under Wine, into one Markdown table, followed by the
# operations slower than three times their raw side, and those that grow too fast.
BEGIN { FS = "  +" }
FNR == 1 { next }
# Whether it grew more than 2.1 times per doubling of the amount, and more than its raw side did.
function grows(table, operation, amount, raw, growth,    last, doublings) {
  last = rawOf[table, operation]
  doublings = last == "" ? 0 : log(amount / amountOf[table, operation]) / log(2)
  rawOf[table, operation] = raw
  amountOf[table, operation] = amount
  return doublings > 0 && last > 0 && raw > 0 && growth > 2.1 && growth > 1.05 * exp(log(raw / last) / doublings)
}
{
  if (grows(NR == FNR, $1, $2, $4, $6)) fast[$1] = 1
}
NR == FNR {
  what[FNR] = $1 " | " $2
  native[FNR] = $3 " | " $4 " | " $5 " | " $6
  ratio[FNR] = $5
  next
}
what[FNR] != $1 " | " $2 {
  print "bench: the two tables do not measure the same" >"/dev/stderr"
  failed = 1
  exit 1
}
{
  if (!($1 in lines)) operations[++count] = $1
  lines[$1] = lines[$1] "| " what[FNR] " | " native[FNR] " | " $3 " | " $4 " | " $5 " | " $6 " |\n"
  if ($5 > 3 || ratio[FNR] > 3) slow[$1] = 1
}
END {
  if (failed || count == 0) exit 1
  print "| Operation | Amount | Native ms | Raw ms | Ratio | Growth | Wine ms | Raw ms | Ratio | Growth |"
  print "|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|"
  for (i = 1; i <= count; ++i) {
    printf "%s", lines[operations[i]]
    if (operations[i] in slow) names = names (names == "" ? " " : "; ") operations[i]
    if (operations[i] in fast) fasts = fasts (fasts == "" ? " " : "; ") operations[i]
  }
  print "\nMore than three times the raw side at some amount:" (names == "" ? " nothing" : names) "."
  print "More than 2.1 times per doubling, and more than the raw side:" (fasts == "" ? " nothing" : fasts) "."
}
