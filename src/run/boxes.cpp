#include "run/boxes.h"

#include <algorithm>
#include <optional>

#include "run/console.h"
#include "run/opener_settings.h"
#include "run/platform.h"
#include "text/characters.h"
#include "text/joined.h"

namespace vantelgis {

namespace {

constexpr std::size_t kMaxText = 256;

struct Button {
    std::string_view label;
    BoxAnswer answer;
    int platformAnswer;  // what the platform's message box gives for it
};
constexpr Button kOk{"OK", BoxAnswer::ok, 1};
constexpr Button kCancel{"Cancel", BoxAnswer::cancel, 2};
constexpr Button kRetry{"Retry", BoxAnswer::retry, 4};
constexpr Button kYes{"Yes", BoxAnswer::yes, 6};
constexpr Button kNo{"No", BoxAnswer::no, 7};

struct Form {
    BoxForm form;
    unsigned platformType;  // buttons, icon and "bring to the foreground"
    bool showsVersion;      // in the caption
    int count;
    Button buttons[3];  // the first is the default
};
constexpr Form kForms[] = {
    {BoxForm::stop, 65552, false, 1, {kOk}},
    {BoxForm::retry, 65589, true, 2, {kRetry, kCancel}},
    {BoxForm::yesNo, 65572, true, 2, {kYes, kNo}},
    {BoxForm::yesNoCancel, 65587, true, 3, {kYes, kNo, kCancel}},
    {BoxForm::pause, 65584, false, 1, {kOk}},
    {BoxForm::exit, 65552, false, 1, {kOk}},
};

// The last button of every form is Cancel, or else No, or else OK.
const Button& answerOfNobody(const Form& form) {
    return form.buttons[form.count - 1];
}

void showOnConsole(const Form& form, std::string_view caption, std::string_view text) {
    consoleLine("\n", caption);
    for (std::size_t end; (end = text.find('\r')) != std::string_view::npos;
         text.remove_prefix(end + 1))
        consoleLine(text.substr(0, end));
    consoleLine(text);
    for (int i = 0; i < form.count; ++i) consoleText(i == 0 ? " " : ", ", form.buttons[i].label);
    consoleText("? ");
}

// A button is named by its first letter or more; Enter alone takes the first button.
const Button* findButton(const Form& form, std::string_view answer) {
    if (answer.empty()) return &form.buttons[0];
    for (int i = 0; i < form.count; ++i)
        if (beginsWith(form.buttons[i].label, answer)) return &form.buttons[i];
    return nullptr;
}

BoxAnswer askOnConsole(const Form& form, std::string_view caption, std::string_view text) {
    for (;;) {
        showOnConsole(form, caption, text);
        Text<80> answer;
        if (!consoleReadLine(answer)) {
            consoleLine();
            return answerOfNobody(form).answer;
        }
        if (const Button* button = findButton(form, withoutLeadingBlanks(answer)))
            return button->answer;
    }
}

}  // namespace

BoxAnswer showBox(BoxForm boxForm, std::string_view text) {
    const Form& form = *std::find_if(std::begin(kForms), std::end(kForms),
                                     [&](const Form& row) { return row.form == boxForm; });
    const OpenerSettings& host = openerSettings;
    const Joined<256> caption(host.boxTitle, form.showsVersion ? " " : "",
                              form.showsVersion ? host.boxVersion.view() : std::string_view{});
    text = text.substr(0, kMaxText);
    const std::optional<int> shown = platform::messageBox(caption, text, form.platformType);
    if (!shown) return askOnConsole(form, caption, text);
    for (int i = 0; i < form.count; ++i)
        if (form.buttons[i].platformAnswer == *shown) return form.buttons[i].answer;
    return answerOfNobody(form).answer;
}

}  // namespace vantelgis
