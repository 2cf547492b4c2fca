# A row of a class's table that does not fit the C++ member that it leads to must not compile. Each test gives one row
# to the compiler and looks for the sentence that refuses it; without a sentence the row has to compile.

if(CMAKE_CXX_FLAGS MATCHES "-fsanitize")
  return()
endif()

set(row_includes "$<TARGET_PROPERTY:zefcomponent,INCLUDE_DIRECTORIES>")

function(zef_add_row_test name row sentence)
  add_test(NAME component.row_${name}
    COMMAND "${CMAKE_CXX_COMPILER}" -std=c++20 -fsyntax-only "-DROW=${row}"
      "-I$<JOIN:${row_includes},;-I>" "${PROJECT_SOURCE_DIR}/tests/rows/row.cpp"
    COMMAND_EXPAND_LISTS)
  set_tests_properties(component.row_${name} PROPERTIES TIMEOUT 120 PASS_REGULAR_EXPRESSION "${sentence}")
endfunction()

zef_add_row_test(that_fits_compiles
  [[Members<CSession>::Function<&CSession::GetDBInfo, Boolean(ByRef<Text>, ByRef<Text>)>("GetDBInfo", "V", "T")]] "")

set(another_name "the row names another member")
zef_add_row_test(with_the_name_of_another_property_is_refused
  [[Members<CFolder>::Property<&CFolder::Name, Text>("Description")]] "${another_name}")
zef_add_row_test(with_the_name_of_another_let_is_refused
  [[Members<Odd>::Property<&Odd::One, &Odd::SetTwo, Long>("One")]] "${another_name}")
zef_add_row_test(with_the_name_of_another_function_is_refused
  [[Members<CFolder>::Function<&CFolder::IsNew, Boolean()>("IsModified")]] "${another_name}")
zef_add_row_test(with_another_type_of_property_is_refused
  [[Members<CFolder>::Property<&CFolder::Name, Long>("Name")]] "the description states another type of argument")
zef_add_row_test(with_another_type_of_result_is_refused
  [[Members<CFolder>::Function<&CFolder::IsNew, Long()>("IsNew")]] "the description states another type of result")
zef_add_row_test(with_another_type_of_argument_is_refused
  [[Members<CFolder>::Function<&CFolder::ResetFlagsX, void(Boolean, Long)>("ResetFlagsX", "M", "N")]]
  "the description states another type of argument")
zef_add_row_test(with_another_number_of_arguments_is_refused
  [[Members<CFolder>::Function<&CFolder::ResetFlagsX, void(Boolean)>("ResetFlagsX", "M")]]
  "the description states another number of arguments")
zef_add_row_test(without_the_name_of_an_argument_is_refused
  [[Members<CFolder>::Function<&CFolder::ResetFlagsX, void(Boolean, Boolean)>("ResetFlagsX", "M")]]
  "every argument has a name")
zef_add_row_test(with_a_changed_argument_as_a_value_is_refused
  [[Members<CSession>::Function<&CSession::GetDBInfo, Boolean(Text, ByRef<Text>)>("GetDBInfo", "V", "T")]]
  "the member changes an argument that is described as a value")
zef_add_row_test(with_a_result_that_the_member_has_and_the_row_lacks_is_refused
  [[Members<CFolder>::Function<&CFolder::IsNew, void()>("IsNew")]] "the description states no result")
zef_add_row_test(with_a_changed_variable_of_any_kind_is_refused
  [[Members<Odd>::Function<&Odd::ChangeAny, void(ByRef<Value>)>("ChangeAny", "A")]]
  "a variable of any kind cannot be written back")
zef_add_row_test(with_a_default_that_is_no_integer_is_refused
  [[Members<Odd>::Function<&Odd::Take, void(Optional<Text, 5>)>("Take", "T")]]
  "only an integer has a default of its own")
zef_add_row_test(of_a_class_in_the_other_list_is_refused
  [[(static_cast<void>(PlaceIn<CFolder>(kReachedNames)), Member{})]] "the class is in the other list")
