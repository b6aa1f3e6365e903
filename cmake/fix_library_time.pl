# fix_library_time.pl FILE: removes the creation time, stored as text and as a number, from a type
# library that widl wrote, so that the same sources give the same bytes. Fails if it finds none.
use strict;
use warnings;

my ($path) = @ARGV;
open(my $file, '+<:raw', $path) or die "$path: $!\n";
my $bytes = do { local $/; <$file> };
$bytes =~ s/(Created by WIDL version [0-9.]+ at ).{24}(\nW*\x13\0).{4}/$1Thu Jan  1 00:00:00 1970$2\0\0\0\0/s
  or die "$path: widl's time was not found\n";
seek($file, 0, 0) or die "$path: $!\n";
print {$file} $bytes or die "$path: $!\n";
close($file) or die "$path: $!\n";
