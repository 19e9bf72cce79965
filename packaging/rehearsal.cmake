# Installs the package in a bare Debian 12, plays, upgrades over a kept bank, shares a bank, removes and purges.
# As root:  cmake -P packaging/rehearsal.cmake [PACKAGE [FOLDER]]
# The bare system is made in FOLDER/root, by debootstrap; FOLDER is /tmp/orvanta-rehearsal unless given. As it was at
# first it is kept in FOLDER/bare.tar, with which the next rehearsal begins. Pictures on the way stay in FOLDER/root/pictures.
cmake_minimum_required(VERSION 3.25)

set(source ${CMAKE_CURRENT_LIST_DIR}/..)
file(GLOB package ${source}/build/orvanta_*_amd64.deb)
set(folder /tmp/orvanta-rehearsal)
if(CMAKE_ARGC GREATER 3)
    set(package ${CMAKE_ARGV3})
endif()
if(CMAKE_ARGC GREATER 4)
    set(folder ${CMAKE_ARGV4})
endif()
if(NOT EXISTS "${package}")
    message(FATAL_ERROR "There is no package yet: cmake --build build --target deb")
endif()
set(root ${folder}/root)

# inside(COMMAND...): runs it in the bare system as root, with processes of its own; its output goes into `output`.
function(inside)
    execute_process(COMMAND unshare --mount --pid --fork --mount-proc=${root}/proc chroot ${root}
                            env -i PATH=/usr/sbin:/usr/bin:/usr/games LANG=C.UTF-8 DEBIAN_FRONTEND=noninteractive ${ARGN}
                    OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# as(USER COMMAND...)
function(as user)
    inside(setpriv --reuid=${user} --regid=${user} --clear-groups env HOME=/home/${user} ${ARGN})
    set(output "${output}" PARENT_SCOPE)
endfunction()

# xdotool does not bear windows that vanish while it searches, hence the pauses.
# at_desk(USER MOVES [VARIABLE=VALUE...]): a user with a desktop of their own; MOVES is a script of xdotool.
function(at_desk user moves)
    file(WRITE ${root}/tmp/moves "exec openbox\nsleep 2\n${moves}")
    inside(setpriv --reuid=${user} --regid=${user} --clear-groups env HOME=/home/${user} ${ARGN}
           timeout 120 xvfb-run --auto-servernum --server-args=-screen\ 0\ 1024x768x24 xdotool /tmp/moves)
endfunction()

# expect(WHAT IS WANTED)
function(expect what is wanted)
    if(NOT is STREQUAL wanted)
        message(FATAL_ERROR "${what}: ${is}, not ${wanted}")
    endif()
    message(STATUS "  ${what}: ${is}")
endfunction()

# choices(USER): how often an answer was chosen, by the bank of a user, goes into `choices`.
function(choices user)
    as(${user} sqlite3 /home/${user}/.local/share/orvanta/orv.orv "select sum(a + b + c + d - 4) from questions")
    set(choices ${output} PARENT_SCOPE)
endfunction()

function(install_system)
    execute_process(COMMAND umount --quiet ${root}/full ERROR_QUIET)
    if(EXISTS ${root}/etc/debian_version)
        file(REMOVE_RECURSE ${root})
    endif()
    file(MAKE_DIRECTORY ${folder})
    if(EXISTS ${folder}/bare.tar)
        execute_process(COMMAND tar --extract --file=${folder}/bare.tar --directory=${folder} COMMAND_ERROR_IS_FATAL ANY)
    else()
        execute_process(COMMAND debootstrap --variant=minbase bookworm ${root} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
        inside(apt-get install -y -qq --no-install-recommends xvfb xauth openbox xdotool scrot sqlite3)
        foreach(user asha babu chitra)
            inside(useradd --create-home --user-group ${user})
        endforeach()
        inside(apt-get clean)
        execute_process(COMMAND tar --create --one-file-system --file=${folder}/bare.tar --directory=${folder} root
                        COMMAND_ERROR_IS_FATAL ANY)
    endif()
    inside(apt-get update -qq)
    file(MAKE_DIRECTORY ${root}/pictures)
    file(CHMOD ${root}/pictures PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_WRITE GROUP_EXECUTE
         WORLD_READ WORLD_WRITE WORLD_EXECUTE)
endfunction()

# install_version(VERSION): the package with another number.
function(install_version version)
    set(unpacked ${folder}/package)
    file(REMOVE_RECURSE ${unpacked})
    execute_process(COMMAND dpkg-deb --raw-extract ${package} ${unpacked} COMMAND_ERROR_IS_FATAL ANY)
    file(READ ${unpacked}/DEBIAN/control control)
    string(REGEX REPLACE "\nVersion: [^\n]*" "\nVersion: ${version}" control "${control}")
    file(WRITE ${unpacked}/DEBIAN/control "${control}")
    execute_process(COMMAND dpkg-deb --root-owner-group --build ${unpacked} ${root}/tmp/orvanta.deb
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    inside(apt-get install -y -qq --no-install-recommends --allow-downgrades /tmp/orvanta.deb)
    inside(dpkg-query --showformat=\${Version} --show orvanta)
    expect("installed version" "${output}" ${version})
endfunction()

# The welcome, the title, the rules and the name are passed by keyboard, the answer is a click on the first option.
set(play [[
sleep 5
search --sync --onlyvisible --name "^Welcome to Orvanta$"
sleep 2
exec --sync scrot --overwrite /pictures/WHO-welcome.png
key --window 0 space
sleep 2
key --window 0 Return
sleep 5
search --sync --onlyvisible --name "^Orvanta : Rules$"
sleep 1
key --window 0 Return
sleep 2
type --window 0 --delay 50 Asha
key --window 0 Return
sleep 4
exec --sync scrot --overwrite /pictures/WHO-question.png
mousemove 340 503 click 1
sleep 2
exec --sync scrot --overwrite /pictures/WHO-lock.png
key --window 0 alt+y
sleep 4
exec --sync scrot --overwrite /pictures/WHO-verdict.png
key --window 0 Return
sleep 3
exec --sync scrot --overwrite /pictures/WHO-after.png
]])
set(start "exec orvanta-launcher\n")
set(tell_password [[
sleep 5
search --sync --onlyvisible --class orvanta-launcher
sleep 1
exec --sync scrot --overwrite /pictures/WHO-password.png
key --window 0 Return
]])

# fill(WHO SCRIPT RESULT): the moves of somebody, after whom their pictures are called.
function(fill who script result)
    string(REPLACE WHO ${who} script "${script}")
    set(${result} "${script}" PARENT_SCOPE)
endfunction()

message(STATUS "A bare system")
install_system()

message(STATUS "Installation and first start")
install_version(1.0)
fill(asha "${start}${tell_password}${play}" moves)
at_desk(asha "${moves}")
choices(asha)
expect("choices in Asha's bank" "${choices}" 1)
as(asha orvbank check /home/asha/.local/share/orvanta/orv.orv) # fails where there are faults
message(STATUS "  ${output}")

message(STATUS "Upgrade over a kept bank")
file(SHA256 ${root}/home/asha/.local/share/orvanta/orv.orv before)
install_version(2.0)
file(SHA256 ${root}/home/asha/.local/share/orvanta/orv.orv after)
expect("Asha's bank after the upgrade" ${after} ${before})
fill(asha-again "${start}${play}" moves)
at_desk(asha "${moves}")
choices(asha)
expect("choices in Asha's bank" "${choices}" 2)

message(STATUS "A bank for all players, which they cannot write")
set(shared /usr/local/share/orvanta/orv.orv)
inside(mkdir -p /usr/local/share/orvanta)
inside(orvbank create ${shared} --from /usr/share/orvanta/data)
inside(chmod 644 ${shared})
file(SHA256 ${root}${shared} before)
fill(babu "${start}${play}" moves)
at_desk(babu "${moves}")
file(SHA256 ${root}${shared} after)
expect("the shared bank after a game" ${after} ${before})
as(babu readlink /home/babu/.local/share/orvanta/orv.orv)
expect("Babu's bank" "${output}" ${shared})

message(STATUS "What is told when it cannot be")
set(complaint [[
exec orvanta-launcher
sleep 5
search --sync --onlyvisible --class orvanta-launcher
sleep 1
exec --sync scrot --overwrite /pictures/WHO.png
key --window 0 Return
sleep 1
]])
function(expect_complaint name)
    fill(${name} "${complaint}" moves)
    at_desk(chitra "${moves}" ${ARGN})
    message(STATUS "  ${name}: seen in ${root}/pictures/${name}.png")
endfunction()
expect_complaint(no-home HOME=)
expect_complaint(unwritable HOME=/)
file(MAKE_DIRECTORY ${root}/full)
execute_process(COMMAND mount -t tmpfs -o size=64k,mode=777 tmpfs ${root}/full COMMAND_ERROR_IS_FATAL ANY)
expect_complaint(full-disk XDG_DATA_HOME=/full XDG_DATA_DIRS=/usr/share)
inside(find /full -type f)
execute_process(COMMAND umount ${root}/full)
expect("half a bank on the full disk" "${output}" "")
fill(twice "exec orvanta-launcher\nsleep 5\nsearch --sync --onlyvisible --name \"^Welcome to Orvanta$\"\n${complaint}" moves)
at_desk(babu "${moves}")
as(chitra sh -c "orvanta-launcher 2>&1 || true")
expect("without a display" "${output}"
       "Orvanta cannot start: there is no display to show it on. Start it from a graphical desktop.")

message(STATUS "Removal and purge")
foreach(way remove purge)
    install_version(3.0)
    inside(apt-get ${way} -y -qq orvanta)
    inside(find /usr /etc /var/lib /var/cache -ipath "*orv*" -not -path "/usr/local/*" -not -path "/var/lib/dpkg/info/*")
    expect("what is left of the program after ${way}" "${output}" "")
endforeach()
as(asha sqlite3 /home/asha/.local/share/orvanta/orv.orv "pragma integrity_check")
expect("Asha's bank" "${output}" ok)
inside(sqlite3 ${shared} "pragma integrity_check")
expect("the shared bank" "${output}" ok)
message(STATUS "All is well; pictures are in ${root}/pictures.")
