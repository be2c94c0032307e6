#include "run/run_inputs.h"

#include <algorithm>
#include <vector>

namespace vantelgis {

namespace {

struct RunInputs {
    bool declared = false;
    std::vector<platform::FileIdentity> files;
};
RunInputs inputs;

}  // namespace

void declareInput(std::string_view name) {
    inputs.declared = true;
    platform::FileIdentity identity;
    if (platform::identifyInput(name, identity)) noteInput(identity);
}

void withdrawInput(std::string_view name) {
    platform::FileIdentity identity;
    if (platform::identifyInput(name, identity)) std::erase(inputs.files, identity);
}

void forgetInputs() {
    inputs = {};
}

void noteInput(const platform::FileIdentity& identity) {
    const bool known = !(identity == platform::FileIdentity{});
    if (inputs.declared && known && !isInputOfRun(identity)) inputs.files.push_back(identity);
}

bool isInputOfRun(const platform::FileIdentity& identity) {
    return std::find(inputs.files.begin(), inputs.files.end(), identity) != inputs.files.end();
}

bool inputsAreDeclared() {
    return inputs.declared;
}

}  // namespace vantelgis
