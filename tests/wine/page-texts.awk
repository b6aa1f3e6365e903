# awk -f page-texts.awk EXPECTED FOUND: checks that the words found by pdftotext -bbox are exactly the
# texts that print_pages expects, each in its place.
BEGIN {
  FS = "\t"
  tolerance = 0.75  # points
}

FNR == NR {
  if ($1 != "text") next
  ++texts
  page_of[texts] = $2
  left[texts] = $3; right[texts] = $4; top[texts] = $5; bottom[texts] = $6
  text[texts] = $7
  gsub(/ /, "", text[texts])
  next
}

/<page / { ++page }

/<word / {
  ++words
  split($0, part, "\"")
  word = $0
  sub(/^[^>]*>/, "", word)
  sub(/<\/word>.*/, "", word)
  home = 0
  for (i = 1; i <= texts; ++i) {
    if (page_of[i] == page && part[2] > left[i] - tolerance && part[6] < right[i] + tolerance &&
        part[4] > top[i] - tolerance && part[8] < bottom[i] + tolerance) home = i
  }
  if (!home) {
    print "page " page ": nothing was expected where \"" word "\" is: " part[2] " " part[4]
    ++wrong
    next
  }
  found[home] = found[home] word
  if (!(home in begins) || part[2] < begins[home]) begins[home] = part[2]
  if (part[6] > ends[home]) ends[home] = part[6]
}

END {
  for (i = 1; i <= texts; ++i) {
    if (found[i] != text[i]) {
      print "page " page_of[i] ": \"" found[i] "\" is where \"" text[i] "\" should be"
      ++wrong
    } else if (begins[i] > left[i] + tolerance || ends[i] < right[i] - tolerance) {
      print "page " page_of[i] ": \"" text[i] "\" is from " begins[i] " to " ends[i] \
        ", expected from " left[i] " to " right[i]
      ++wrong
    }
  }
  print texts " texts, " words " words, " page " pages, " wrong + 0 " wrong"
  exit wrong > 0 || texts == 0 || words == 0
}
