# Says in one line per operation what the tables of pricedown_bench, native and under Wine, mean for
# the user: at the least amount for what is done with a class, else at the greatest.
BEGIN {
  FS = "  +"
  count = 0
  Say("show", "first", "The control of the sample company, %s tree nodes, appears")
  Say("create", "first", "%s controls are made and end again")
  Say("tree load", "last", "The tree of a company with %s class members loads")
  Say("grid load", "last", "A list of %s items fills")
  Say("keys", "last", "The arrow key moves 300 times down a list of %s items")
  Say("node click", "first", "A class of %s items is listed")
  Say("edit open", "first", "A class of %s items opens for editing")
  Say("save text", "first", "The text that saves a class of %s items is built")
  Say("save", "first", "A class of %s items is saved")
  Say("remove 100", "first", "100 items leave a class of %s after that")
  Say("delete", "first", "A class of %s items is deleted")
  Say("find", "last", "A text is found in the last of %s rows")
  Say("count", "last", "All hits in %s rows are counted")
  Say("print fill", "last", "A list of %s items is handed to the preview")
  Say("paginate", "last", "The pages of a list of %s items are counted")
  Say("all pages", "last", "All pages of a list of %s items are made")
  print "| What the user does | Native ms | Wine ms |"
  print "|---|---:|---:|"
}
function Say(operation, which, sentence) {
  order[++count] = operation
  place[operation] = which
  text[operation] = sentence
}
FNR == 1 { next }
{
  side = NR == FNR ? "native" : "wine"
  if (place[$1] == "first" && (side, $1) in time) next
  time[side, $1] = $3
  amount[$1] = $2
}
END {
  for (i = 1; i <= count; ++i) {
    operation = order[i]
    if (!(("wine", operation) in time)) exit 1
    print "| " sprintf(text[operation], amount[operation]) " | " time["native", operation] " | " \
      time["wine", operation] " |"
  }
}
