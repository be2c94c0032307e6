#include "batch/completion.h"

#include <CLI/CLI.hpp>

namespace vantelgis::batch {

std::string bashCompletion(const CLI::App& app) {
    std::string words;
    for (const CLI::Option* const option : app.get_options()) {
        if (option->get_group().empty()) continue;
        for (const std::string& name : option->get_lnames()) words += " --" + name;
        for (const std::string& name : option->get_snames()) words += " -" + name;
    }
    return "_vantelgis_batch() {\n"
           "    local word=${COMP_WORDS[COMP_CWORD]}\n"
           "    case ${COMP_WORDS[COMP_CWORD - 1]} in\n"
           "        --progress) COMPREPLY=($(compgen -W 'auto lines json none' -- \"$word\")) ;;\n"
           "        --look) COMPREPLY=($(compgen -W 'sample full' -- \"$word\")) ;;\n"
           "        --output-folder | --log) COMPREPLY=($(compgen -d -- \"$word\")) ;;\n"
           "        *)\n"
           "            if [[ $word == -* ]]; then\n"
           "                COMPREPLY=($(compgen -W '" +
           words.substr(1) +
           "' -- \"$word\"))\n"
           "            else\n"
           "                COMPREPLY=($(compgen -f -- \"$word\"))\n"
           "            fi ;;\n"
           "    esac\n"
           "}\n"
           "complete -o filenames -F _vantelgis_batch vantelgis-batch\n";
}

}  // namespace vantelgis::batch
