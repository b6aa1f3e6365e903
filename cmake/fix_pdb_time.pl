# fix_pdb_time.pl PDB LIBRARY: removes the link time from the PDB of LIBRARY, so that the same sources
# give the same bytes. Debuggers compare the id that follows it. Fails if it finds none.
use strict;
use warnings;

sub content {
  my ($path) = @_;
  open(my $file, '<:raw', $path) or die "$path: $!\n";
  local $/;
  return scalar <$file>;
}

my ($path, $library) = @ARGV;
content($library) =~ /RSDS(.{16})\x01\x00\x00\x00/s or die "$library: names no PDB\n";
my $id = $1;
my $bytes = content($path);
# The format's version (20000404), the time, the age and the id, which may begin with a digit: \0 before
# it would be another escape.
$bytes =~ s/(\x94\x2e\x31\x01).{4}(\x01\x00\x00\x00\Q$id\E)/$1\x00\x00\x00\x00$2/s
  or die "$path: the link time was not found\n";
open(my $file, '+<:raw', $path) or die "$path: $!\n";
print {$file} $bytes or die "$path: $!\n";
close($file) or die "$path: $!\n";
