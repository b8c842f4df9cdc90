"""quorvalib: the material-data engine from Python, over numpy.

Values are in the library's base units: degree C, g/(cm.sec), dyne/cm^2, cc/g, g/cc,
erg/(g.oC), erg/(sec.cm.oC). Failures raise FileNotFoundError, ValueError, IndexError or OSError.
"""
import os
from typing import Iterable, Optional, Union, overload

import numpy as np
import numpy.typing as npt

ArrayLike = npt.ArrayLike
FloatArray = npt.NDArray[np.float64]
PathLike = Union[str, "os.PathLike[str]"]

BASE: int
SI: int
ENGLISH: int

class Block:
    """One property block of a material, copied out of it."""
    @property
    def name(self) -> str: ...
    @property
    def source(self) -> int: ...
    @property
    def model(self) -> int: ...
    @property
    def model_name(self) -> str: ...
    @property
    def parameter_names(self) -> list[str]: ...
    @property
    def values(self) -> FloatArray: ...
    @property
    def unit_ids(self) -> list[int]: ...
    @property
    def units(self) -> list[str]: ...
    @property
    def unit_system(self) -> int: ...
    def __len__(self) -> int: ...

class Material:
    """A material record of the library, released when the object goes."""
    @staticmethod
    def load(path: str) -> Material:
        """Loads a material file. FileNotFoundError, ValueError."""
    @staticmethod
    def generate(vis: int = 4, pvt: int = 5, crystalline: bool = False, cp: int = 3, k: int = 2,
                 filler: int = 1) -> Material:
        """A default material for the given model ids."""
    def save(self, path: str) -> None:
        """Saves as a current-form file ("mtx": thermoset form). ValueError, OSError."""
    @property
    def origin(self) -> str: ...
    polymer: Optional[str]
    producer: Optional[str]
    grade_name: Optional[str]
    comment: Optional[str]
    source: Optional[str]
    file_type: int
    version: int
    last_edit_date: int
    measure_date: int
    @property
    def is_thermoplastic(self) -> bool: ...
    @property
    def is_thermoset(self) -> bool: ...
    @property
    def is_metal(self) -> bool: ...
    @property
    def is_coolant(self) -> bool: ...
    @property
    def is_chip(self) -> bool: ...
    @property
    def is_lead_frame(self) -> bool: ...
    @property
    def is_substrate(self) -> bool: ...
    @property
    def is_wire(self) -> bool: ...
    @property
    def type(self) -> str: ...
    @property
    def mfi(self) -> str: ...
    def content(self, thermoset: Optional[bool] = None) -> str:
        """The plain dump of the record. ValueError when it cannot be formed."""
    def report(self, module: str = "Filling", material_file: Optional[str] = None,
               unit_system: Optional[int] = None, install_folder: Optional[str] = None) -> str:
        """The material report for an analysis module."""
    def block(self, name: str, unit_system: int = 0) -> Block:
        """One block with its values in a unit system (0 base, 1 SI, 2 English)."""
    def blocks(self, unit_system: int = 0) -> dict[str, Block]:
        """Every block by name, in record order."""
    def set_block(self, name: str, model: int, values: ArrayLike,
                  source: Optional[int] = None) -> None:
        """Replaces a block's model and values (base units)."""
    @overload
    def viscosity(self, shear_rate: float, temperature: float, pressure: float = 0.0,
                  conversion: float = 0.0, *, fast: bool = False) -> float: ...
    @overload
    def viscosity(self, shear_rate: ArrayLike, temperature: ArrayLike, pressure: ArrayLike = 0.0,
                  conversion: ArrayLike = 0.0, *, fast: bool = False) -> Union[float, FloatArray]:
        """Viscosity, g/(cm.sec), broadcast over the inputs."""
    @overload
    def specific_volume(self, pressure: float, temperature: float, conversion: float = 0.0, *,
                        fast: bool = False) -> float: ...
    @overload
    def specific_volume(self, pressure: ArrayLike, temperature: ArrayLike,
                        conversion: ArrayLike = 0.0, *,
                        fast: bool = False) -> Union[float, FloatArray]:
        """Specific volume, cc/g, broadcast over the inputs."""
    @overload
    def density(self, pressure: float, temperature: float, conversion: float = 0.0, *,
                fast: bool = False) -> float: ...
    @overload
    def density(self, pressure: ArrayLike, temperature: ArrayLike, conversion: ArrayLike = 0.0, *,
                fast: bool = False) -> Union[float, FloatArray]:
        """Density, g/cc, broadcast over the inputs."""
    @overload
    def heat_capacity(self, temperature: float, *, fast: bool = False) -> float: ...
    @overload
    def heat_capacity(self, temperature: ArrayLike, *,
                      fast: bool = False) -> Union[float, FloatArray]:
        """Heat capacity, erg/(g.oC)."""
    @overload
    def thermal_conductivity(self, temperature: float, *, fast: bool = False) -> float: ...
    @overload
    def thermal_conductivity(self, temperature: ArrayLike, *,
                             fast: bool = False) -> Union[float, FloatArray]:
        """Thermal conductivity, erg/(sec.cm.oC)."""
    @overload
    def conversion(self, temperature: float, heating_rate: float, conversion: float, *,
                   fast: bool = False) -> float: ...
    @overload
    def conversion(self, temperature: ArrayLike, heating_rate: ArrayLike, conversion: ArrayLike, *,
                   fast: bool = False) -> Union[float, FloatArray]:
        """Cure conversion after one step."""
    @property
    def no_flow_temperature(self) -> Optional[float]: ...
    @property
    def melt_temp_min(self) -> Optional[float]: ...
    @property
    def melt_temp_max(self) -> Optional[float]: ...
    @property
    def mold_temp_min(self) -> Optional[float]: ...
    @property
    def mold_temp_max(self) -> Optional[float]: ...
    @property
    def eject_temp(self) -> Optional[float]: ...
    @property
    def freeze_temp(self) -> Optional[float]: ...
    @property
    def elastic_modulus(self) -> Optional[float]: ...
    @property
    def fiber_aspect_ratio(self) -> Optional[float]: ...
    @property
    def filler_aspect_ratio(self) -> Optional[float]: ...
    @property
    def linear_shrinkage(self) -> Optional[float]: ...
    @property
    def clte_a1_melt(self) -> Optional[float]: ...
    @property
    def clte_a1_solid(self) -> Optional[float]: ...
    @property
    def clte_a2_melt(self) -> Optional[float]: ...
    @property
    def clte_a2_solid(self) -> Optional[float]: ...
    @property
    def nonplastic_cp(self) -> Optional[float]: ...
    @property
    def nonplastic_k(self) -> Optional[float]: ...
    @property
    def nonplastic_pr(self) -> Optional[float]: ...
    @property
    def nonplastic_em(self) -> Optional[float]: ...
    @property
    def nonplastic_clte(self) -> Optional[float]: ...
    @property
    def nonplastic_density(self) -> Optional[float]: ...
    @property
    def has_viscoelastic_data(self) -> bool: ...
    @property
    def has_optic_data(self) -> bool: ...
    @property
    def has_crystallinity_data(self) -> bool: ...
    @property
    def thermoset_has_mech(self) -> bool: ...
    @property
    def thermoset_has_scorch_index(self) -> bool: ...
    @property
    def has_stress_strain_data(self) -> bool: ...
    @property
    def fiber_percent(self) -> float: ...
    @property
    def filler_percent(self) -> float: ...
    @property
    def filler_type(self) -> int: ...
    @property
    def fiber_type(self) -> str: ...
    def is_constant_model(self, which: int) -> bool: ...
    def constant_model_value(self, which: int) -> Optional[float]: ...
    @property
    def stress_strain_count(self) -> int: ...
    def stress_strain(self, index: int) -> tuple[float, float]: ...

class Bank:
    """A material bank file: entries by position, appended to only."""
    def __init__(self, path: PathLike) -> None: ...
    @property
    def path(self) -> str: ...
    def __len__(self) -> int: ...
    def __getitem__(self, index: int) -> Material: ...
    def list(self) -> list[dict[str, object]]:
        """One dict per entry: index, type, polymer, producer, grade_name."""
    def add(self, materials: Iterable[Union[Material, PathLike]]) -> None:
        """Appends materials or material files."""
    def export(self, index: int, path: PathLike) -> None:
        """Writes one entry as a material file."""

class Metal:
    """One metal of a metal list."""
    @property
    def name(self) -> str: ...
    @property
    def density(self) -> float: ...
    @property
    def cp(self) -> float: ...
    @property
    def k(self) -> float: ...
    @property
    def em(self) -> float: ...
    @property
    def pr(self) -> float: ...
    @property
    def clte(self) -> float: ...

def metals(system_root: PathLike, user_root: PathLike, rim: bool = False) -> list[Metal]:
    """The metals of the system bank, then those of the user's bank."""
def metal_from_file(path: PathLike) -> Metal:
    """The metal of a material file."""
def model_info(block: str, model: int, count: int = 0, thermoset: bool = False,
               unit_system: int = 0) -> Block:
    """Model name, parameter names and units of a model, as a Block of zeros."""
def model_name(block: str, model: int, thermoset: bool = False) -> str:
    """The library's name of a model id."""
def unit_label(unit_id: int, unit_system: int) -> str:
    """The label of a unit id in a unit system."""
@overload
def convert_from_base(values: float, unit_id: int, unit_system: int) -> float: ...
@overload
def convert_from_base(values: ArrayLike, unit_id: int,
                      unit_system: int) -> Union[float, FloatArray]:
    """Base units to a unit system."""
@overload
def convert_to_base(values: float, unit_id: int, unit_system: int) -> float: ...
@overload
def convert_to_base(values: ArrayLike, unit_id: int, unit_system: int) -> Union[float, FloatArray]:
    """A unit system to base units."""
def map_unit_id(unit_id: int) -> int:
    """The dimension id of a report item's negative id."""
def set_install_folder(folder: Optional[str]) -> None:
    """Sets the install folder of the statistics file; None withdraws it."""
def install_folder() -> Optional[str]:
    """The install folder, or None."""
def set_unit_system(unit_system: int) -> None:
    """Sets the unit system of reports; negative withdraws it."""
def unit_system() -> Optional[int]:
    """The unit system of reports, or None."""
def library_version() -> int:
    """The material body version the library writes by default."""
def build_date() -> int:
    """The build date of the library as yyyymmdd."""

class RunFile:
    """A simulation run file (HDF5) holding copies of the materials of its runs."""
    def __init__(self, path: PathLike) -> None: ...
    @property
    def path(self) -> str: ...
    def add(self, material: Material, label: str = "", run: int = 1) -> None:
        """Stores a material in a run. ValueError, OSError."""
    def __len__(self) -> int: ...
    def __getitem__(self, index: int) -> Material: ...
    def close(self) -> None:
        """Closes the file."""
    def __enter__(self) -> RunFile: ...
    def __exit__(self, *args: object) -> None: ...
