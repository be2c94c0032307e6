! Reads a file line by line through the opener and adds up the first number of each line. What Fortran
! has printed is in a buffer of its own: flush it before a routine prints.
program levels
  use, intrinsic :: iso_fortran_env, only: output_unit
  use vantelgis
  implicit none
  character(200) :: name, line
  integer(c_int32_t) :: unit = 0
  integer(c_size_t) :: length
  real(c_float) :: total = 0, level

  name = "levels.txt"
  if (command_argument_count() > 0) call get_command_argument(1, name)
  print "(2a)", "reading ", trim(name)
  flush (output_unit)

  call vg_filesinit(100)
  call vg_fileopen(unit, "I", 1_c_size_t, name, len_trim(name, c_size_t))
  do while (.not. vg_at_end(unit))
    if (.not. vg_readline(unit, line, len(line, c_size_t), length)) cycle  ! a comment
    if (vg_csvvalue(line, length, 1, level)) total = total + level
  end do
  call vg_closer(unit)

  length = vg_areal(line, len(line, c_size_t), total)
  print "(2a)", "sum ", line(:length)
end program levels
