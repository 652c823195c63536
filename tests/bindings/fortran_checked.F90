! Arrays of assumed shape: long lists, sections, and one that is too short, if an argument asks for
! it. Prints what the checked module has to do.
program fortran_checked
  use, intrinsic :: ieee_arithmetic
  use kezlib_checked
  implicit none
  integer, parameter :: n = 100000
  integer :: a(n), b(n), com(1), dif(2 * n), ncom, ndif, nm, i, ia(2 * n), ib(2 * n)
  real :: x(n), y(n), square(2, 5), area, distances(4)
  character(20) :: which

  a = [(i, i = 1, n)]
  b = a + n - 1
  call kezmer4(n, a, n, b, ncom, com, ndif, dif)
  if (ncom /= 1 .or. com(1) /= n .or. ndif /= 2 * n - 2) error stop "common entries"
  x = 2.0 * real(a)
  y = x + 0.5
  call kezmer13(n, x, n, y, nm, ia, ib, 0.5)
  if (nm /= n .or. ib(n) /= n .or. kez_pairs(x, n, y, n, 0.5) /= n) error stop "near entries"
  ! The difference is larger than the tolerance until it is rounded.
  if (kez_pairs([1.0], 1, [-1e-9], 1, 1.0) /= 1) error stop "a rounded difference"
  x(:2) = [ieee_value(1.0, ieee_quiet_nan), ieee_value(1.0, ieee_positive_inf)]
  if (kez_pairs(x, 2, x, 2, 0.5) /= 0) error stop "what is not finite"

  square(1, :4) = [0.0, 2.0, 2.0, 0.0]
  square(2, :4) = [0.0, 0.0, 2.0, 2.0]
  call kezapl(square(1, :), square(2, :), 4, area)
  if (abs(area - 4) > 0) error stop "a section"

  do concurrent (i = 1:4)
    call kezpds(0.0, 0.0, 0.0, real(i), 0.0, 0.0, distances(i))
  end do
  if (any(abs(distances - [1.0, 2.0, 3.0, 4.0]) > 0)) error stop "do concurrent"

  call get_command_argument(1, which)
  select case (which)
    case ("outline")
      call kezapl(x(:4), y(:5), 4, area)
    case ("pairs")
      call kezmer4(2, a(:2), 2, a(:2), ncom, com, ndif, dif)
  end select
  print "(a)", "as it should be"
end program fortran_checked
