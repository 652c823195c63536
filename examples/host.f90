program host
  use kezlib
  implicit none
  integer :: n
  real :: x1, y1, x2, y2

  ! The line y = 0.5 across the unit circle x^2 + y^2 - 1 = 0.
  call kezlci(0.0, 1.0, -0.5, 0.0, 0.0, -1.0, n, x1, y1, x2, y2)
  if (n == 2) print "(a, f8.6, a, f3.1, a, f9.6, a, f3.1, a)", &
    "(", x1, ", ", y1, ") and (", x2, ", ", y2, ")"
end program host
