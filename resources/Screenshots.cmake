# zeph_add_screenshots(METAINFO RESULT URL): the AppStream metadata with the pictures of README, as
# they lie below URL, the address of tests/golden/expected.
function(zeph_add_screenshots metainfo result url)
    set(captions
        "wallpaper-morning-1920x1080-1x.png|The wallpaper in the morning"
        "wallpaper-night-1920x1080-1x.png|The wallpaper late in the evening"
        "pane-layout-custom-dark.png|The order of the widgets"
        "onboarding-4-customizing.png|The welcome")
    set(screenshots "  <screenshots>\n")
    set(type " type=\"default\"")
    foreach(entry IN LISTS captions)
        string(REPLACE "|" ";" entry "${entry}")
        list(GET entry 0 picture)
        list(GET entry 1 caption)
        if(NOT EXISTS ${PROJECT_SOURCE_DIR}/tests/golden/expected/${picture})
            message(FATAL_ERROR "There is no ${picture} for the software centres")
        endif()
        string(APPEND screenshots "    <screenshot${type}>\n"
            "      <caption>${caption}</caption>\n      <image>${url}/${picture}</image>\n"
            "    </screenshot>\n")
        set(type "")
    endforeach()
    file(READ ${metainfo} text)
    string(REPLACE "  <content_rating" "${screenshots}  </screenshots>\n  <content_rating" text "${text}")
    file(WRITE ${result} "${text}")
endfunction()
