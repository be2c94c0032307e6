#include <cstdint>

#include "run/opener_settings.h"
#include "toolkit/c/out_text.h"
#include "toolkit/c/vantelgis.h"

using namespace vantelgis;

namespace {

// The text of that name, with no capacity for any other name.
TextRef settingText(std::int32_t name) {
    switch (name) {
        case VG_BOX_TITLE: return openerSettings.boxTitle;
        case VG_BOX_VERSION: return openerSettings.boxVersion;
        case VG_COPY_ROOT: return openerSettings.copyRoot;
        case VG_COPY_LAST: return openerSettings.copyLast;
        default: break;
    }
    static std::size_t none;
    return {nullptr, 0, &none};
}

}  // namespace

void vg_set_setting(std::int32_t name, std::int32_t value) {
    const bool on = value != 0;
    switch (name) {
        case VG_LOG_UNIT: openerSettings.logUnit = value; break;
        case VG_BOX_MODE: openerSettings.boxMode = on; break;
        case VG_INPUT_DRIVE: openerSettings.inputDrive = static_cast<char>(value); break;
        case VG_OUTPUT_DRIVE: openerSettings.outputDrive = static_cast<char>(value); break;
        case VG_AUTO_FOLDERS: openerSettings.autoFolders = on; break;
        case VG_BLOCK_SIZE: openerSettings.blockSize = value; break;
        case VG_COPY_MODE: openerSettings.copyMode = on; break;
        case VG_COPY_EXACT: openerSettings.copyExact = on; break;
        default: break;
    }
}

std::int32_t vg_setting(std::int32_t name) {
    switch (name) {
        case VG_LOG_UNIT: return openerSettings.logUnit;
        case VG_BOX_MODE: return openerSettings.boxMode ? 1 : 0;
        case VG_INPUT_DRIVE: return openerSettings.inputDrive;
        case VG_OUTPUT_DRIVE: return openerSettings.outputDrive;
        case VG_AUTO_FOLDERS: return openerSettings.autoFolders ? 1 : 0;
        case VG_BLOCK_SIZE: return openerSettings.blockSize;
        case VG_COPY_MODE: return openerSettings.copyMode ? 1 : 0;
        case VG_COPY_EXACT: return openerSettings.copyExact ? 1 : 0;
        default: return 0;
    }
}

void vg_set_setting_text(std::int32_t name, const char* text, std::size_t text_length) {
    settingText(name).assign(view(text, text_length));
}

std::size_t vg_setting_text(std::int32_t name, char* out, std::size_t out_capacity) {
    const std::string_view text = settingText(name).view();
    return given([&](TextRef target) { target.assign(text); }, out, out_capacity);
}
