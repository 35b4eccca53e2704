# Run by the rule of embed_pictures: writes `output` with the pixels of `pictures`, which `convert` reads.
set(table "")
foreach(picture IN LISTS pictures)
  string(REGEX MATCH "([a-z]+)-([0-9]+)\\.png$" matched ${picture})
  set(name ${CMAKE_MATCH_1})
  set(size ${CMAKE_MATCH_2})
  set(pixels ${output}.rgba)
  execute_process(COMMAND ${convert} ${picture} -depth 8 rgba:${pixels} COMMAND_ERROR_IS_FATAL ANY)
  file(READ ${pixels} bytes HEX)
  file(REMOVE ${pixels})
  string(REGEX REPLACE "(..)" "\\\\x\\1" bytes "${bytes}")
  string(APPEND table "    {\"${name}\", ${size}, \"${bytes}\"sv},\n")
endforeach()
file(WRITE ${output} "#include \"pictures/DrawnPicture.h\"

#include <array>

namespace quorvel {
namespace {

using namespace std::string_view_literals;

constexpr auto kPictures = std::to_array<DrawnPicture>({
${table}});

}  // namespace

std::span<const DrawnPicture> DrawnPictures() noexcept { return kPictures; }

}  // namespace quorvel
")
