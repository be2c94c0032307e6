# Makes a C++ source that holds a text file: cmake -DINPUT=FILE -DOUTPUT=FILE.cpp -DNAME=CONSTANT
# -DNAMESPACE=NAMESPACE -P embed_text.cmake
file(READ "${INPUT}" bytes HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
string(REGEX REPLACE "((......,)(......,)(......,)(......,)(......,)(......,)(......,)(......,))" "\\1\n" bytes "${bytes}")
file(WRITE "${OUTPUT}" "#include <string_view>

namespace ${NAMESPACE} {

namespace {
constexpr char kBytes[] = {
${bytes}
};
}  // namespace

extern const std::string_view ${NAME};
const std::string_view ${NAME}{kBytes, sizeof kBytes};

}  // namespace ${NAMESPACE}
")
