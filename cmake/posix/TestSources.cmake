# Where the tests' own library comes from, and which tests are for this system: all.

find_package(GTest REQUIRED)

function(zef_keep_tests_of_this_system)
endfunction()
