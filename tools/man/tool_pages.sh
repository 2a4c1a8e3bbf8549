#!/bin/sh
# tool_pages.sh TOLK VERSION FOLDER: a page for the tool and one for each command, from what --help prints.
set -eu
tolk=$1 version=$2 folder=$3
mkdir -p "$folder"

page() {  # NAME HELP_OPTION DESCRIPTION
  help2man --no-info --source="TolkColor $version" --version-string="$version" --help-option="$2" --name="$3" \
    --output="$folder/$1.1" "$tolk"
  sed -i 's/^tolk [a-z0-9]* .*[.][a-z]/.br\n&/' "$folder/$1.1"  # a line for each example
}

commands=$("$tolk" --help | sed -n '/^Subcommands:/,$ s/^  \([a-z0-9]*\)  .*/\1/p')
page tolk --help "convert pictures between colour spaces and layouts"
for command in $commands; do
  description=$("$tolk" "$command" --help | head -n 1)
  page "tolk-$command" "$command --help" "$description"
done
{
  echo '.SH "SEE ALSO"'
  for command in $commands; do echo ".BR tolk\\-$command (1),"; done
  echo '.BR tolkcolor (3)'
} >>"$folder/tolk.1"
