# Fails when a command or an option that the help of the program prints is missing in its man page
# or in the completions of a shell, or one of them has another.
#   cmake -DCOMMAND=<the built command> -DFOLDER=<packaging> -P CheckCommandDocuments.cmake
cmake_minimum_required(VERSION 3.25)

# help_of(VARIABLE [command]): what it prints.
function(help_of variable)
    execute_process(COMMAND ${COMMAND} ${ARGN} --help OUTPUT_VARIABLE text
        COMMAND_ERROR_IS_FATAL ANY)
    set(${variable} "${text}" PARENT_SCOPE)
endfunction()

# found(VARIABLE text before name after): all that stands between the two in the text; each of the
# three is a regular expression.
function(found variable text before name after)
    string(REGEX MATCHALL "${before}${name}${after}" all "${text}")
    list(TRANSFORM all REPLACE "^${before}(${name})${after}$" "\\1")
    list(REMOVE_DUPLICATES all)
    list(SORT all)
    set(${variable} ${all} PARENT_SCOPE)
endfunction()

set(name "[a-z][-a-z]+")
help_of(help)
string(REGEX REPLACE ".*\nCommands:\n" "" after_heading "${help}")
found(commands "${after_heading}" "\n? +" ${name} "  +[^\n]*\n")
foreach(command IN LISTS commands)
    help_of(own ${command})
    string(APPEND help "${own}")
endforeach()
found(options "${help}" "--" ${name} "")
found(letters "${help}" "\n  -" "[a-zA-Z]" ",")
if(NOT commands OR NOT options OR NOT letters)
    message(FATAL_ERROR "The help has no commands, options or letters:\n${help}")
endif()

set(faults "")
# compare(file kind expected-list found-list)
function(compare file kind expected actual)
    if(NOT "${expected}" STREQUAL "${actual}")
        string(APPEND faults "\n  ${file} has the ${kind} ${actual}, the help ${expected}")
        set(faults "${faults}" PARENT_SCOPE)
    endif()
endfunction()

# check(file command-before command-after option-before letter-before)
function(check file command_before command_after option_before letter_before)
    file(READ ${FOLDER}/${file} text)
    string(REPLACE "\\-" "-" text "${text}")
    found(actual "${text}" "${command_before}" ${name} "${command_after}")
    compare(${file} commands "${commands}" "${actual}")
    found(actual "${text}" "${option_before}" ${name} "")
    compare(${file} options "${options}" "${actual}")
    foreach(letter IN LISTS letters)
        if(NOT text MATCHES "${letter_before}${letter}[^-a-zA-Z]")
            string(APPEND faults "\n  ${file} lacks -${letter}")
        endif()
    endforeach()
    set(faults "${faults}" PARENT_SCOPE)
endfunction()

check(panewright.1 "\n.fB" ".fR" "--" "[^-a-z]-")
check(completions/panewright.zsh "\n +'" ":" "--" "[^-a-z]-")
check(completions/panewright.fish " -a " " " "complete [^\n]* -l " "complete [^\n]* -s ")
check(completions/panewright.bash "\n +\\[" "\\]=" "--" "[^-a-z]-")
if(faults)
    message(FATAL_ERROR "The command is not documented as it is:${faults}")
endif()
