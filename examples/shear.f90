! What shear does at the centroid of a T: the outline is moved there and cut along the x axis, and
! what lies above has the first moment that the shear stress is in proportion to.
program shear
  use kezlib
  implicit none
  integer, parameter :: n = 8, polygon = 2
  ! Flange 200 x 20 on a web 10 x 180, in mm, counter-clockwise from the top left. Routines close
  ! an outline: entry n + 1 is theirs.
  real :: x(n + 1) = [-100.0, -100.0, -5.0, -5.0, 5.0, 5.0, 100.0, 100.0, 0.0]
  real :: y(n + 1) = [200.0, 180.0, 180.0, 0.0, 0.0, 180.0, 180.0, 200.0, 0.0]
  real :: above_x(2 * n), above_y(2 * n), below_x(2 * n), below_y(2 * n)
  real :: area, sx, sy, height, width
  integer :: above, below

  call measure(x, y, n)
  height = sx / area
  print "(a, f6.1, a, f5.1, a)", "area ", area, " mm2, centroid ", height, " mm above the foot"

  y = y - height
  call kezpin(n, x, y, 0.0, 1.0, 0.0, above, above_x, above_y, below, below_x, below_y, width)
  call measure(above_x, above_y, above)
  print "(a, f6.1, a, i0, a, f4.1, a)", "above it ", area, " mm2 with a first moment of ", &
    nint(sx), " mm3, where it is ", width, " mm wide"

contains

  subroutine measure(x, y, n)
    real, intent(inout) :: x(*), y(*)
    integer, intent(in) :: n
    call kezair(x, y, n, polygon, 0.0, 1.0, area)
    call kezstm(x, y, n, polygon, 0.0, 1.0, sx, sy)
  end subroutine measure

end program shear
