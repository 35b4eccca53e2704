# Plans the runs of clang-tidy for scripts/tidy. Reads a list of sources, the compile_commands.json of the build, and that of the
# Windows build. Prints a line for each run: the file that clang-tidy reads and the sources that it checks. The file is a source,
# or it includes up to eight sources of a folder that have the same options: most of a run's time goes into headers.
#   awk -v root=FOLDER/ -v joined=FOLDER -f scripts/tidy-plan.awk LIST COMMANDS WINDOWS_COMMANDS
#
# A file that includes several sources hides a missing #include in one of them. So sources are joined only when a build compiles
# each of them alone and with nothing precompiled that the source might not include. The release build does so for the product,
# the Windows build for its own sources, and the sanitized build, with GoogleTest precompiled, for the tests. That leaves the
# sources for which every build has the toolkit precompiled, and helpers of tests, which need not include GoogleTest.
function is_read_alone(source, options) {
  return options ~ "/quorvel_(wx|window_test_support).dir/cmake_pch" || (source ~ "^tests/" && source !~ "Test.cpp$")
}

# The analyzer follows functions of an included source only when the name of the including file begins with UnifiedSource.
function write_joined(members, count,   file, i) {
  file = members[1]
  gsub("/", "_", file)
  file = joined "/UnifiedSource-" file
  print "// NOLINTBEGIN(bugprone-suspicious-include)" >file
  for (i = 1; i <= count; ++i) printf "#include \"%s%s\"\n", root, members[i] >file
  print "// NOLINTEND(bugprone-suspicious-include)" >file
  close(file)
  return file
}

# Adds the options of a joined file to those of the others.
function write_options(file, group) {
  printf "%s\n{%s\n%s-c %s%s\",\n  \"file\": \"%s%s\"}", has_joined++ ? "," : "[", directory[group], command[group],
    root, file, root, file >(joined "/compile_commands.json")
}

function end_run(group,   members, count, file) {
  count = split(sources[group], members)
  if (count == 1) {
    print members[1], members[1]
    return
  }
  file = write_joined(members, count)
  write_options(file, group)
  print file, sources[group]
}

FILENAME == ARGV[1] { is_left[$0]; next }
/"directory": / { folder = $0 }
/"command": / { options = $0 }
/"file": / {
  split($0, quoted, "\"")
  source = quoted[4]
  if (index(source, root) != 1) next
  source = substr(source, length(root) + 1)
  if (!(source in is_left) || (source ~ "/(windows|msw)/") != (FILENAME == ARGV[3])) next
  delete is_left[source]

  alone = is_read_alone(source, options)
  # What remains is the same for all sources of a target.
  gsub(/ -Winvalid-pch| -include [^ ]*cmake_pch\.hxx|-o [^ ]+ -c [^ ]+",$/, "", options)
  room = source
  sub("/[^/]*$", "", room)
  group = alone ? source : room " " options
  if (!(group in sources)) {
    groups[++group_count] = group
    directory[group] = folder
    command[group] = options
  }
  sources[group] = sources[group] (size[group] ? " " : "") source
  if (++size[group] == 8) {
    end_run(group)
    sources[group] = ""
    size[group] = 0
  }
}
END {
  for (i = 1; i <= group_count; ++i) if (size[groups[i]] > 0) end_run(groups[i])
  print has_joined ? "]" : "[]" >(joined "/compile_commands.json")
  # Sources that neither build compiles: clang-tidy takes the options of a neighbour.
  for (source in is_left) print source, source
}
